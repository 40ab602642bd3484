// Natives that ask for the present state of the supplicant, with one client command each.

#include "jni/NativeCall.h"

using namespace platwifi;

PLATWIFI_NATIVE(jint, getDaemonStatus0)(JNIEnv* env, jclass, jstring iface) {
    SettingsCall call(env, iface);
    return static_cast<jint>(call.settings().getCurrentStatus(call.iface()));
}

PLATWIFI_NATIVE(jstring, getCurrentNetwork0)(JNIEnv* env, jclass, jstring iface) {
    SettingsCall call(env, iface);
    const WifiNetwork* const network = call.settings().getCurrentNetwork(call.iface());
    return network ? call.newString(network->getSsid()) : nullptr;
}

// The refresh comes before the lookup, and also if there is no such network.
PLATWIFI_NATIVE(jint, getNetworkStatus0)(JNIEnv* env, jclass, jstring iface, jstring ssid) {
    SettingsCall call(env, iface, ssid);
    call.settings().refreshDatabaseNetworksStatus();
    const WifiNetwork* const network = call.settings().getNetwork(call.iface(), call.ssid());
    return network ? static_cast<jint>(network->getNetworkStatus()) : 0;
}
