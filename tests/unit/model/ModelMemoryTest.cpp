#include "AddedNetworks.h"
#include "model/NetworkFields.h"

#include "support/FieldTable.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <string>

namespace {

// Texts are the only arrays here.
bool watched = false;
bool exhausted = false;
std::size_t lastSize = 0;
long arrays = 0;

void startWatching() {
    watched = true;
    lastSize = 0;
    arrays = 0;
}

} // namespace

void* operator new[](std::size_t size) {
    void* const memory = exhausted ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    if (watched) {
        lastSize = size;
        ++arrays;
    }
    return memory;
}

void operator delete[](void* memory) noexcept {
    if (watched && memory)
        --arrays;
    std::free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    operator delete[](memory);
}

namespace {

class ModelMemory : public testing::Test {
protected:
    ModelMemory() { startWatching(); }
    ~ModelMemory() override { watched = false; }
};

TEST_F(ModelMemory, HoldsATextInAnArrayOfItsLengthAndOne) {
    WifiNetwork network;
    EXPECT_EQ(arrays, 0) << "nothing before there is a text";
    for (const std::size_t length : {1U, 3U, 32U, 200U}) {
        const std::string text(length, 'w');
        network.setPsk(text.c_str());
        EXPECT_EQ(lastSize, length + 1);
        network.setWepKey(2, text.c_str());
        EXPECT_EQ(lastSize, length + 1);
        EXPECT_EQ(arrays, 2) << "the one before is freed";
    }
    network.setPsk("");
    EXPECT_EQ(lastSize, 1U);
    network.setWepKey(2, "");
    EXPECT_EQ(arrays, 1) << "an empty WEP key is none";
    network.setPsk("x");
    network.setPsk(nullptr);
    EXPECT_EQ(arrays, 0);
}

TEST_F(ModelMemory, IsFreedWithTheNetwork) {
    {
        WifiNetwork network;
        for (const test::FieldRow& row : test::fieldRows()) {
            if (test::isText(row))
                platwifi::NetworkFields::of(network).setText(row.field, "text");
        }
        EXPECT_EQ(arrays, 23);
    }
    EXPECT_EQ(arrays, 0);
}

TEST_F(ModelMemory, IsFreedWithTheListAndWithARemovedNetwork) {
    {
        WifiNetworkList list;
        for (const char* ssid : {"A", "B", "C", "D"})
            EXPECT_TRUE(test::add(list, ssid));
        EXPECT_EQ(arrays, 4);
        list.removeNetworkFromList("B");
        EXPECT_EQ(arrays, 3);
        list.removeAllFromList();
        EXPECT_EQ(arrays, 0);
        for (const char* ssid : {"A", "B"})
            EXPECT_TRUE(test::add(list, ssid));
        EXPECT_EQ(arrays, 2);
    }
    EXPECT_EQ(arrays, 0);
}

TEST_F(ModelMemory, IsLeftAloneByARefusal) {
    WifiNetworkList list;
    EXPECT_TRUE(test::add(list, "A"));
    auto rejected = test::networkWithSsid("A");
    EXPECT_FALSE(list.addNetworkToList(rejected.get()));
    EXPECT_EQ(arrays, 2);
    rejected.reset();
    EXPECT_EQ(arrays, 1);
}

// NET-9
TEST(ModelMemoryDeathTest, EndsTheProcessWhenItHasRunOut) {
    EXPECT_EXIT(
        {
            WifiNetwork network;
            exhausted = true;
            try {
                network.setSsid("abc");
            } catch (...) {
                std::_Exit(0); // nothing may be thrown
            }
        },
        testing::KilledBySignal(SIGABRT), "");
}

} // namespace
