// The instance: made once, locked, reloaded, unloaded.

#include "LoadedSettings.h"

#include "settings/WifiHostSettings.h"
#include "support/Doing.h"
#include "support/ThreadState.h"

#include <filesystem>
#include <memory>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const test::Arguments LIST{"-iwlan0", "list_networks"};

class Lifecycle : public test::SettingsTest {
protected:
    /// The client lists these networks in all loads from now on.
    void serve(const std::vector<std::string>& ssids) {
        scriptLoad(test::LoadedHost::linesOf(ssids));
    }

    void serveNothing() {
        standIn.reset();
        answer("", 255);
    }

    static unsigned char adapterCount() {
        char* names[2] = {nullptr, nullptr};
        unsigned char count = 9;
        EXPECT_TRUE(settings().getWifiAdapters(names, 2, &count));
        for (const char* const name : names)
            delete[] name;
        return count;
    }
};

/// A handler that must not be used after its end.
class CountingHandler : public NullExceptionHandler {
public:
    explicit CountingHandler(int& reports) : m_reports(reports) {}
    void error(MessageBundle* /*bundle*/) override { ++m_reports; }

private:
    int& m_reports;
};

TEST_F(Lifecycle, ThereIsOneInstanceLoadedOnce) {
    serve({"home"});
    int reports = 0;
    CountingHandler handler(reports);
    WifiHostSettings* const first = WifiHostSettings::getInstance(nullptr);
    ASSERT_NE(first, nullptr);
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_EQ(WifiHostSettings::getInstance(&handler), first);
    EXPECT_EQ(standIn.callsOf(LIST), 1U);
    EXPECT_EQ(reports, 0);
}

// API-11
TEST_F(Lifecycle, AHandlerIsNeitherUsedNorKept) {
    serveNothing();
    int reports = 0;
    auto handler = std::make_unique<CountingHandler>(reports);
    WifiHostSettings* const instance = WifiHostSettings::getInstance(handler.get());
    handler.reset();
    ASSERT_NE(instance, nullptr);
    EXPECT_FALSE(instance->addNetwork("wlan0", "home"));
    EXPECT_TRUE(instance->refreshAllSettings());
    EXPECT_EQ(reports, 0) << "the result alone shows that a load failed";
}

TEST_F(Lifecycle, UnloadWithoutAnInstanceDoesNothing) {
    WifiHostSettings::unload();
    WifiHostSettings::unload();
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(Lifecycle, AfterUnloadTheNextCallLoadsAgain) {
    serve({"home"});
    settings();
    WifiHostSettings::unload();
    EXPECT_EQ(standIn.callsOf(LIST), 1U);
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_EQ(standIn.callsOf(LIST), 2U);
}

TEST_F(Lifecycle, ReloadLoadsAlsoWhereNothingIsLoaded) {
    serve({"home"});
    const WifiHostSettings& first = reload();
    EXPECT_THAT(ssids(), ElementsAre("home"));
    serve({"office"});
    EXPECT_EQ(&reload(), &first);
    EXPECT_THAT(ssids(), ElementsAre("office"));
}

TEST_F(Lifecycle, AFailedLoadLeavesAnInstanceThatAnswersItsFailureValues) {
    serveNothing();
    WifiHostSettings& failed = settings();
    EXPECT_EQ(adapterCount(), 0U);
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_FALSE(failed.addNetwork("wlan0", "home"));
    EXPECT_TRUE(failed.removeNetwork("wlan0", "home"));
    EXPECT_FALSE(failed.connectNetwork("wlan0", "home"));
    EXPECT_TRUE(failed.disconnectNetwork("wlan0", "home"));
    EXPECT_FALSE(failed.roamNetworks("wlan0"));
    EXPECT_EQ(standIn.callsOf({"interface"}), 1U) << "the load is not tried again";
}

TEST_F(Lifecycle, AFailedLoadEndsTheRefreshThread) {
    serveNothing();
    settings();
    EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem")) << "its watchdog is still there";
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
}

TEST_F(Lifecycle, AHostWithoutAdapterHasAnInstanceWithoutNetworks) {
    adapters = "";
    serve({"home"});
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_EQ(standIn.callsOf(LIST), 0U);
    EXPECT_TRUE(settings().refreshAllSettings());
}

// LOAD-25
TEST_F(Lifecycle, ARefreshDiscardsEverythingAndLoadsItAgain) {
    load(test::LoadedHost::linesOf({"home", "office"}));
    network("home")->setPriority(77);
    refreshAll(test::LoadedHost::linesOf({"home"}));
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_EQ(network("home")->getPriority(), 0U);
    EXPECT_FALSE(network("home")->getNetworkDirty());
    EXPECT_EQ(adapterCount(), 1U);
}

// LOAD-24
TEST_F(Lifecycle, AFailedRefreshSucceedsAndLeavesNothing) {
    load("0\thome\tany\t\n");
    settings().lockSettings(); // by the caller, around the refresh
    EXPECT_TRUE(settings().refreshAllSettings());
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_EQ(adapterCount(), 0U);
    const test::Doing other([] { expectNoLockHeld(); });
    other.awaitRest();
    EXPECT_FALSE(other.isDone()) << "the lock of the caller is held once";
    settings().unlockSettings();
}

TEST_F(Lifecycle, TheHolderOfTheLocksMayTakeThemAgainAndKeepsOthersOut) {
    serve({"home"});
    EXPECT_TRUE(settings().lockSettings());
    EXPECT_TRUE(settings().lockSettings());
    EXPECT_TRUE(settings().refreshAllSettings());
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_TRUE(settings().unlockSettings());
    const test::Doing other([] { settings().removeNetwork("wlan0", "home"); });
    other.awaitRest();
    EXPECT_FALSE(other.isDone());
    EXPECT_TRUE(settings().unlockSettings());
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
    // A bit says that the function is virtual: in the second word on ARM, else in the first.
    EXPECT_EQ((slot.word[0] | slot.word[1]) & 1, 1);
    EXPECT_EQ(slot.word[0] & ~std::ptrdiff_t{1}, static_cast<std::ptrdiff_t>(2 * sizeof(void*)))
        << "two slots come first: the complete and the deleting destructor";
}

} // namespace
