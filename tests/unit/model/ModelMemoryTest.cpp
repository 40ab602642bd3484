#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <string>

namespace {

// Arrays, and nothing else here, are what texts are made of.
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

void setAllTexts(WifiNetwork& network) {
    using Setter = bool (WifiNetwork::*)(const char*);
    const Setter setters[] = {
        &WifiNetwork::setSsid,
        &WifiNetwork::setBssid,
        &WifiNetwork::setPsk,
        &WifiNetwork::setEAPIdentity,
        &WifiNetwork::setEAPAnonymousIdentity,
        &WifiNetwork::setEAPPassword,
        &WifiNetwork::setCACertificate,
        &WifiNetwork::setCACertificateDir,
        &WifiNetwork::setClientCertificate,
        &WifiNetwork::setPrivateKeyFile,
        &WifiNetwork::setPrivateKeyPassword,
        &WifiNetwork::setPhase1Step,
        &WifiNetwork::setPhase2Step,
        &WifiNetwork::setCACertificate2,
        &WifiNetwork::setCACertificateDir2,
        &WifiNetwork::setClientCertificate2,
        &WifiNetwork::setPrivateKeyFile2,
        &WifiNetwork::setPrivateKeyPassword2,
        &WifiNetwork::setIpAddress,
    };
    for (const Setter set : setters)
        (network.*set)("text");
    for (unsigned int slot = 0; slot < 4; ++slot)
        network.setWepKey(slot, "abcde");
}

TEST_F(ModelMemory, IsFreedWithTheNetwork) {
    {
        WifiNetwork network;
        setAllTexts(network);
        EXPECT_EQ(arrays, 23);
    }
    EXPECT_EQ(arrays, 0);
}

WifiNetwork* networkCalled(const char* ssid) {
    auto* network = new WifiNetwork;
    network->setSsid(ssid);
    return network;
}

TEST_F(ModelMemory, IsFreedWithTheListAndWhatLeavesIt) {
    {
        WifiNetworkList list;
        for (const char* ssid : {"A", "B", "C", "D"})
            EXPECT_TRUE(list.addNetworkToList(networkCalled(ssid)));
        EXPECT_EQ(arrays, 4);
        list.removeNetworkFromList("B");
        EXPECT_EQ(arrays, 3);
        list.removeAllFromList();
        EXPECT_EQ(arrays, 0);
        for (const char* ssid : {"A", "B"})
            EXPECT_TRUE(list.addNetworkToList(networkCalled(ssid)));
        EXPECT_EQ(arrays, 2);
    }
    EXPECT_EQ(arrays, 0);
}

TEST_F(ModelMemory, IsLeftAloneByARefusal) {
    WifiNetworkList list;
    EXPECT_TRUE(list.addNetworkToList(networkCalled("A")));
    WifiNetwork* const rejected = networkCalled("A");
    EXPECT_FALSE(list.addNetworkToList(rejected));
    EXPECT_EQ(arrays, 2);
    delete rejected;
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
