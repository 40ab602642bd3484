// Calls that unload and load the settings and the driver, which the other calls use.

#include "Calls.h"
#include "Supplicant.h"
#include "jni/ServiceFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"
#include "support/FakeJni.h"

#include <atomic>
#include <cstring>

extern "C" jboolean Java_com_quorvel_platwifi_BWifiPlatformService_unloadWifiSettings0(JNIEnv*,
                                                                                       jclass);

namespace stress {
namespace {

std::atomic<std::uint32_t> unloadCount{0};

void stopService(Worker&) {
    ++unloadCount;
    expect(stopWifiService(nullptr) == 1, "stopWifiService failed");
}

void unloadNative(Worker& worker) {
    ++unloadCount;
    const auto unloaded = Java_com_quorvel_platwifi_BWifiPlatformService_unloadWifiSettings0(
        worker.java().environment(), nullptr);
    expect(unloaded == JNI_TRUE, "unloadWifiSettings0 failed");
}

void unload(Worker&) {
    ++unloadCount;
    WifiHostSettings::unload();
}

void reload(Worker&) {
    ++unloadCount;
    expect(WifiHostSettings::reload(nullptr) != nullptr, "reload gave no settings");
}

void refreshAll(Worker&) {
    expect(WifiHostSettings::getInstance(nullptr)->refreshAllSettings(),
           "refreshAllSettings failed");
}

void unloadDriver(Worker&) {
    WifiUtil::unload();
}

void lookUp(WifiHostSettings& settings, const std::string& ssid) {
    const WifiNetwork* const network = settings.getNetwork("wlan0", ssid.c_str());
    expect(network != nullptr, "a configured network is not found under the lock");
    expect(network->getSsid() == ssid, "a network does not have the SSID that it was found by");
    const char* const identity = network->getEAPIdentity();
    expect(!identity || std::strncmp(identity, (ssid + '#').c_str(), ssid.size() + 1) == 0,
           "a network has the identity of another one");
}

// The nested call may unload the settings: no network is used after it.
void lockAndNest(Worker& worker) {
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    settings->lockSettings();
    lookUp(*settings, worker.random.oneOf(FIXED_NETWORKS));
    lookUp(*settings, worker.random.oneOf(FIXED_NETWORKS));
    worker.nest();
    settings->unlockSettings();
}

void unloadUnderLock(Worker& worker) {
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    settings->lockSettings();
    ++unloadCount;
    if (worker.random.oneIn(2))
        WifiHostSettings::unload();
    else
        WifiHostSettings::reload(nullptr);
    settings->unlockSettings();
}

} // namespace

std::uint32_t unloads() {
    return unloadCount;
}

Calls lifetimeCalls() {
    return {
        {"stopWifiService", 4, stopService},
        {"unloadWifiSettings0", 4, unloadNative},
        {"WifiHostSettings::unload", 4, unload},
        {"WifiHostSettings::reload", 4, reload},
        {"refreshAllSettings", 4, refreshAll},
        {"WifiUtil::unload", 8, unloadDriver},
        {"a call under lockSettings", 60, lockAndNest},
        {"unload under lockSettings", 4, unloadUnderLock},
    };
}

} // namespace stress
