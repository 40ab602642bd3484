// The instance: made once, locked, reloaded, ended.

#include "settings/WifiHostSettings.h"

#include "model/WifiNetwork.h"
#include "settings/NullExceptionHandler.h"
#include "supplicant/WifiUtil.h"
#include "support/Doing.h"
#include "support/LoadedHost.h"
#include "support/ThreadState.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <memory>
#include <type_traits>

namespace {

const test::Arguments LIST{"-iwlan0", "list_networks"};

class Lifecycle : public testing::Test {
protected:
    ~Lifecycle() override {
        WifiHostSettings::unload();
        WifiUtil::unload();
    }

    test::LoadedHost host;
};

bool hasNetwork(WifiHostSettings& settings, const char* ssid) {
    settings.lockSettings();
    const bool found = settings.getNetwork("wlan0", ssid) != nullptr;
    settings.unlockSettings();
    return found;
}

unsigned int adapters(const WifiHostSettings& settings) {
    std::array<char*, 2> names{};
    unsigned char count = 9;
    EXPECT_TRUE(settings.getWifiAdapters(names.data(), 2, &count));
    for (const char* name : names)
        delete[] name;
    return count;
}

/// A handler that must not be touched once it is gone.
class Watched : public NullExceptionHandler {
public:
    explicit Watched(int& reports) : m_reports(reports) {}
    void error(MessageBundle* /*bundle*/) override { ++m_reports; }

private:
    int& m_reports;
};

TEST_F(Lifecycle, ThereIsOneInstanceLoadedOnce) {
    host.answers({"home"});
    WifiHostSettings* const first = WifiHostSettings::getInstance(nullptr);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(hasNetwork(*first, "home"));
    int reports = 0;
    Watched handler(reports);
    EXPECT_EQ(WifiHostSettings::getInstance(&handler), first);
    EXPECT_EQ(host.callsOf(LIST), 1U);
    EXPECT_EQ(reports, 0);
}

// API-11
TEST_F(Lifecycle, AHandlerIsNeitherUsedNorKept) {
    host.on({"*"}).exits(255);
    int reports = 0;
    auto handler = std::make_unique<Watched>(reports);
    WifiHostSettings* const settings = WifiHostSettings::getInstance(handler.get());
    handler.reset();
    ASSERT_NE(settings, nullptr);
    EXPECT_FALSE(settings->addNetwork("wlan0", "home"));
    EXPECT_TRUE(settings->refreshAllSettings());
    EXPECT_EQ(reports, 0) << "a load that fails tells so by its result alone";
}

TEST_F(Lifecycle, UnloadWithoutAnInstanceDoesNothing) {
    WifiHostSettings::unload();
    WifiHostSettings::unload();
    EXPECT_TRUE(host.calls().empty());
}

TEST_F(Lifecycle, AfterUnloadTheNextCallMakesAndLoadsANewOne) {
    host.answers({"home"});
    WifiHostSettings::getInstance(nullptr);
    WifiHostSettings::unload();
    EXPECT_EQ(host.callsOf(LIST), 1U);
    EXPECT_TRUE(hasNetwork(*WifiHostSettings::getInstance(nullptr), "home"));
    EXPECT_EQ(host.callsOf(LIST), 2U);
}

TEST_F(Lifecycle, ReloadMakesANewOneAlsoWhereThereIsNone) {
    host.answers({"home"});
    EXPECT_TRUE(hasNetwork(*WifiHostSettings::reload(nullptr), "home"));
    host.reset();
    host.answers({"office"});
    WifiHostSettings* const second = WifiHostSettings::reload(nullptr);
    EXPECT_FALSE(hasNetwork(*second, "home"));
    EXPECT_TRUE(hasNetwork(*second, "office"));
    EXPECT_EQ(WifiHostSettings::getInstance(nullptr), second);
}

TEST_F(Lifecycle, AFailedLoadLeavesAnInstanceThatAnswersItsFailureValues) {
    host.on({"*"}).exits(255);
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(adapters(*settings), 0U);
    EXPECT_FALSE(hasNetwork(*settings, "home"));
    EXPECT_FALSE(settings->addNetwork("wlan0", "home"));
    EXPECT_TRUE(settings->removeNetwork("wlan0", "home"));
    EXPECT_FALSE(settings->connectNetwork("wlan0", "home"));
    EXPECT_TRUE(settings->disconnectNetwork("wlan0", "home"));
    EXPECT_FALSE(settings->roamNetworks("wlan0"));
    unsigned char count = 9;
    std::array<char*, 2> ssids{};
    EXPECT_TRUE(settings->getNetworkDatabaseSsids("wlan0", ssids.data(), 2, &count));
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(WifiHostSettings::getInstance(nullptr), settings) << "nothing tries again by itself";
}

TEST_F(Lifecycle, AFailedLoadEndsTheRefreshThread) {
    host.on({"*"}).exits(255);
    WifiHostSettings::getInstance(nullptr);
    ASSERT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem")) << "its watchdog is still there";
    test::awaitNoThreadNamed("tWifiRefreshWat"); // as much as the system keeps
}

TEST_F(Lifecycle, ReloadRecoversOnceTheSupplicantIsBack) {
    host.on({"*"}).exits(255);
    WifiHostSettings* const failed = WifiHostSettings::getInstance(nullptr);
    host.reset();
    host.answers({"home"});
    EXPECT_FALSE(hasNetwork(*WifiHostSettings::getInstance(nullptr), "home"));
    EXPECT_TRUE(failed->refreshAllSettings()) << "always, although it has no list to fill";
    EXPECT_FALSE(hasNetwork(*failed, "home"));
    EXPECT_TRUE(hasNetwork(*WifiHostSettings::reload(nullptr), "home"));
}

TEST_F(Lifecycle, AHostWithoutAdapterHasAnInstanceWithoutNetworks) {
    host.on({"interface"}).prints("Selected interface 'wlan0'\nAvailable interfaces:\n");
    host.answers({"home"});
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    EXPECT_FALSE(hasNetwork(*settings, "home"));
    EXPECT_EQ(host.callsOf(LIST), 0U);
    EXPECT_TRUE(settings->refreshAllSettings());
}

// LOAD-25
TEST_F(Lifecycle, ARefreshDiscardsEverythingAndLoadsItAgain) {
    host.answers({"home", "office"});
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    settings->lockSettings();
    settings->getNetwork("wlan0", "home")->setPriority(77);
    settings->unlockSettings();
    host.reset();
    host.answers({"home"});
    EXPECT_TRUE(settings->refreshAllSettings());
    EXPECT_FALSE(hasNetwork(*settings, "office"));
    settings->lockSettings();
    EXPECT_EQ(settings->getNetwork("wlan0", "home")->getPriority(), 0U);
    EXPECT_FALSE(settings->getNetwork("wlan0", "home")->getNetworkDirty());
    settings->unlockSettings();
    EXPECT_EQ(adapters(*settings), 1U);
}

// LOAD-24
TEST_F(Lifecycle, AFailedRefreshSucceedsAndLeavesNothing) {
    host.answers({"home"});
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    host.reset();
    host.on({"*"}).exits(255);
    EXPECT_TRUE(settings->refreshAllSettings());
    EXPECT_FALSE(hasNetwork(*settings, "home"));
    EXPECT_EQ(adapters(*settings), 0U);
}

TEST_F(Lifecycle, AFailedRefreshLeavesTheLocksBalanced) {
    host.answers({"home"});
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    host.reset();
    host.on({"*"}).exits(255);
    settings->lockSettings(); // by the caller, around the refresh
    settings->refreshAllSettings();
    std::atomic<bool> entered{false};
    {
        const test::Doing other([&] {
            settings->lockSettings();
            entered = true;
            settings->unlockSettings();
        });
        other.awaitRest();
        EXPECT_FALSE(entered);
        settings->unlockSettings();
    }
    EXPECT_TRUE(entered);
}

TEST_F(Lifecycle, TheLocksMayBeTakenAgainByTheirHolder) {
    host.answers({"home"});
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    EXPECT_TRUE(settings->lockSettings());
    EXPECT_TRUE(settings->lockSettings());
    EXPECT_TRUE(settings->refreshAllSettings());
    EXPECT_TRUE(hasNetwork(*settings, "home"));
    EXPECT_TRUE(settings->unlockSettings());
    EXPECT_TRUE(settings->unlockSettings());
}

TEST_F(Lifecycle, TheHolderOfTheLocksKeepsOthersOut) {
    host.answers({"home"});
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    std::atomic<bool> removed{false};
    settings->lockSettings();
    {
        const test::Doing other([&] {
            settings->removeNetwork("wlan0", "home");
            removed = true;
        });
        other.awaitRest();
        EXPECT_FALSE(removed);
        settings->unlockSettings();
    }
    EXPECT_TRUE(removed);
}

TEST(LifecycleShape, OnlyTheDestructorIsVirtual) {
    static_assert(std::is_polymorphic_v<WifiHostSettings>);
    static_assert(std::has_virtual_destructor_v<WifiHostSettings>);
    struct Derived : WifiHostSettings {
        using WifiHostSettings::WifiHostSettings;
        virtual int next() { return 1; } // takes the slot behind those of the base
    };
    using Next = int (Derived::*)();
    union {
        Next member;
        std::ptrdiff_t word[2];
    } slot{&Derived::next};
    EXPECT_EQ(slot.word[0], static_cast<std::ptrdiff_t>(1 + 2 * sizeof(void*)))
        << "two slots come first: the complete and the deleting destructor";
}

} // namespace
