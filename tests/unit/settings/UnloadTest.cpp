// Threads continue to use the settings while others unload and reload them.

#include "LoadedSettings.h"

#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"
#include "support/Doing.h"
#include "support/Lines.h"
#include "support/ThreadState.h"

#include <filesystem>
#include <future>

using platwifi::ReplyLines;
using platwifi::SettingsLock;
using testing::ElementsAre;

namespace {

class Unload : public test::SettingsTest {
protected:
    /// Loaded, and ready for further loads.
    Unload() {
        scriptLoad("0\thome\tany\t\n");
        settings();
    }

    static bool hasHome(WifiHostSettings& settings) {
        const SettingsLock lock(settings);
        return settings.getNetwork("wlan0", "home") != nullptr;
    }

    static void expectShared(bool isShared) {
        EXPECT_EQ(!test::threadsNamed(test::REFRESH_THREAD).empty(), isShared);
        EXPECT_EQ(std::filesystem::exists("/dev/shm/wifi_shmem"), isShared);
    }
};

// OP-9
TEST_F(Unload, LeavesTheInstanceAtItsAddress) {
    WifiHostSettings* const instance = &settings();
    WifiHostSettings::unload();
    EXPECT_EQ(&settings(), instance);
    EXPECT_EQ(&reload(), instance);
}

TEST_F(Unload, EndsTheRefreshThreadAndLeavesTheSharedBlock) {
    expectShared(true);
    WifiHostSettings::unload();
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
    expectShared(false);
    settings();
    expectShared(true);
}

struct Call {
    const char* name;
    bool (*succeeds)(WifiHostSettings&); ///< where the networks or the adapters are loaded
};

class CallAfterUnload : public Unload, public testing::WithParamInterface<Call> {
public:
    using Unload::hasHome;
};

const Call CALLS[] = {
    {"lockSettings", CallAfterUnload::hasHome},
    {"addNetwork", [](WifiHostSettings& s) { return !s.addNetwork("wlan0", "home"); }},
    {"connectNetwork", [](WifiHostSettings& s) { return s.connectNetwork("wlan0", "home"); }},
    {"disconnectNetwork",
     [](WifiHostSettings& s) {
         return s.disconnectNetwork("wlan0", "home") && CallAfterUnload::hasHome(s);
     }},
    {"getNetworkDatabaseSsids", [](WifiHostSettings& s) { return test::ssidsOf(s).size() == 1; }},
    {"getWifiAdapters",
     [](WifiHostSettings& s) {
         ReplyLines names(2);
         return s.getWifiAdapters(names.data(), 2, &names.count) && names.count == 1;
     }},
    {"refreshAllSettings",
     [](WifiHostSettings& s) { return s.refreshAllSettings() && CallAfterUnload::hasHome(s); }},
    {"refreshDatabaseNetworksStatus",
     [](WifiHostSettings& s) {
         return s.refreshDatabaseNetworksStatus() && CallAfterUnload::hasHome(s);
     }},
};

// As for a thread that got the instance just before another one unloaded it.
// OP-9
TEST_P(CallAfterUnload, FindsTheSettingsLoadedAgainOnce) {
    WifiHostSettings& instance = settings();
    WifiHostSettings::unload();
    EXPECT_TRUE(GetParam().succeeds(instance));
    EXPECT_EQ(standIn.callsOf({"-iwlan0", "list_networks"}), 2U);
}

INSTANTIATE_TEST_SUITE_P(Every, CallAfterUnload, testing::ValuesIn(CALLS),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Unload, WaitsForTheHolderOfTheLocks) {
    settings().lockSettings();
    {
        const test::Doing other([] { WifiHostSettings::unload(); });
        other.awaitRest();
        EXPECT_FALSE(other.isDone());
        EXPECT_TRUE(settings().connectNetwork("wlan0", "home")) << "still loaded";
        settings().unlockSettings();
    }
    EXPECT_TRUE(settings().connectNetwork("wlan0", "home")) << "loaded again";
}

// OP-9
TEST_F(Unload, MayBeCalledByTheHolderOfTheLocksWhileAnotherThreadUnloads) {
    WifiHostSettings& instance = settings();
    instance.lockSettings();
    const test::Doing other([] { WifiHostSettings::unload(); });
    other.awaitRest();
    WifiHostSettings::unload();
    EXPECT_TRUE(hasHome(instance))
        << "loaded again for the holder, before the other thread unloads";
    instance.unlockSettings();
}

TEST_F(Unload, LeavesTheHoldersLocksBalanced) {
    WifiHostSettings& instance = settings();
    instance.lockSettings();
    instance.lockSettings();
    WifiHostSettings::unload();
    EXPECT_TRUE(hasHome(instance));
    reload();
    instance.unlockSettings();
    const test::Doing other([&instance] { hasHome(instance); });
    other.awaitRest();
    EXPECT_FALSE(other.isDone());
    instance.unlockSettings();
}

TEST_F(Unload, OfTheDriverLeavesTheInstanceToThreadsThatUseIt) {
    WifiUtil* const util = WifiUtil::getInstance();
    WifiUtil::unload();
    ReplyLines lines(4);
    EXPECT_TRUE(util->getNetworkDatabaseSsids("wlan0", lines.data(), 4, &lines.count));
    EXPECT_THAT(test::toStrings(lines), ElementsAre("0\thome\tany\t"));
    EXPECT_EQ(WifiUtil::getInstance(), util);
}

TEST_F(Unload, OfTheDriverMakesTheNextCallAskForStampsAgain) {
    const std::string stamp = "12:34:56.789: ";
    standIn.reset();
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + stamp + "wlan0\n");
    standIn.on({"-iwlan0", "status"}).prints(stamp + "wpa_state=COMPLETED\n");
    WifiUtil* const util = WifiUtil::getInstance();
    WifiUtil::unload();
    WifiUtil::getInstance();
    ReplyLines lines(4);
    EXPECT_TRUE(util->getCurrentNetworkStatus("wlan0", lines.data(), 4, &lines.count));
    EXPECT_THAT(test::toStrings(lines), ElementsAre("wpa_state=COMPLETED"));
}

// STATUS-2
TEST_F(Unload, DoesNotMakeARefreshOfTheStatusThatIsNotDueWaitForALock) {
    std::promise<void> asked;
    std::promise<void> locked;
    const test::Doing holder([&] {
        const SettingsLock lock(settings());
        locked.set_value();
        asked.get_future().wait();
    });
    locked.get_future().wait();
    EXPECT_TRUE(settings().refreshDatabaseNetworksStatus());
    asked.set_value();
}

} // namespace
