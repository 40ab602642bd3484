// Natives that carry out one whole operation, which takes the locks that it needs.

#include "jni/NativeCall.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

// The library has the code of these natives once.
[[gnu::noinline]] jboolean run(JNIEnv* env, jstring iface, jstring ssid,
                               bool (WifiHostSettings::*operation)(const char*, const char*)) {
    NativeCall call(env, iface, ssid);
    return (call.settings().*operation)(call.iface(), call.ssid());
}

} // namespace

PLATWIFI_NATIVE(jboolean, connectToNetwork0)(JNIEnv* env, jclass, jstring iface, jstring ssid) {
    return run(env, iface, ssid, &WifiHostSettings::connectNetwork);
}

PLATWIFI_NATIVE(jboolean, disconnectFromNetwork0)
(JNIEnv* env, jclass, jstring iface, jstring ssid) {
    return run(env, iface, ssid, &WifiHostSettings::disconnectNetwork);
}

PLATWIFI_NATIVE(jboolean, addNetwork0)(JNIEnv* env, jclass, jstring iface, jstring ssid) {
    return run(env, iface, ssid, &WifiHostSettings::addNetwork);
}

PLATWIFI_NATIVE(jboolean, removeNetwork0)(JNIEnv* env, jclass, jstring iface, jstring ssid) {
    return run(env, iface, ssid, &WifiHostSettings::removeNetwork);
}

PLATWIFI_NATIVE(jboolean, roamNetworks0)(JNIEnv* env, jclass, jstring iface) {
    NativeCall call(env, iface);
    return call.settings().roamNetworks(call.iface());
}

PLATWIFI_NATIVE(jboolean, saveHostSettings0)(JNIEnv* env, jclass) {
    NativeCall call(env);
    return call.settings().saveNetworkSettings(call.errors()) != 0;
}

// Does not ask for the settings, which would load them.
PLATWIFI_NATIVE(jboolean, unloadWifiSettings0)(JNIEnv* env, jclass) {
    const NativeCall call(env);
    WifiHostSettings::unload();
    return JNI_TRUE;
}

PLATWIFI_NATIVE(jboolean, isWifiEnabled0)(JNIEnv* env, jclass, jstring iface) {
    const NativeCall call(env, iface);
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->isWifiEnabled(call.iface());
}

PLATWIFI_NATIVE(jboolean, hashCACertificates0)(JNIEnv* env, jclass) {
    const NativeCall call(env);
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->hashCACertificates();
}
