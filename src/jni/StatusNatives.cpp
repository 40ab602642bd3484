// Natives that ask what the supplicant is doing now, one command each.

#include "jni/NetworkFrame.h"
#include "model/WifiNetwork.h"
#include "platform/JavaText.h"

using namespace platwifi;

PLATWIFI_NATIVE(jint, getDaemonStatus0)(JNIEnv* environment, jclass, jstring iface) {
    const auto ask = [](WifiHostSettings& settings, const char* name) {
        return static_cast<jint>(settings.getCurrentStatus(name));
    };
    return callOnSettings(environment, ask, iface);
}

PLATWIFI_NATIVE(jstring, getCurrentNetwork0)(JNIEnv* environment, jclass, jstring iface) {
    const auto ask = [=](WifiHostSettings& settings, const char* name) -> jstring {
        const WifiNetwork* const network = settings.getCurrentNetwork(name);
        return network ? platform::newJavaString(environment, network->getSsid()) : nullptr;
    };
    return callOnSettings(environment, ask, iface);
}

// Brought up to date first, also for a network that is not there.
PLATWIFI_NATIVE(jint, getNetworkStatus0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid) {
    const auto ask = [](WifiHostSettings& settings, const char* name, const char* wanted) {
        settings.refreshDatabaseNetworksStatus();
        const WifiNetwork* const network = settings.getNetwork(name, wanted);
        return static_cast<jint>(network ? network->getNetworkStatus() : 0);
    };
    return callOnSettings(environment, ask, iface, ssid);
}
