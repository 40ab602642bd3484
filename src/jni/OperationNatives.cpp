// Natives that carry out one whole operation.

#include "jni/Frame.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

// An operation of the settings, which takes the locks it needs.
template <typename Operation, typename... Strings>
jboolean operate(JNIEnv* environment, Operation operation, Strings... strings) {
    const auto call = [operation](ErrorHandler* errors, auto... texts) -> jboolean {
        WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
        return settings && (settings->*operation)(texts...) ? JNI_TRUE : JNI_FALSE;
    };
    return callNative(environment, call, strings...);
}

} // namespace

PLATWIFI_NATIVE(jboolean, connectToNetwork0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid) {
    return operate(environment, &WifiHostSettings::connectNetwork, iface, ssid);
}

PLATWIFI_NATIVE(jboolean, disconnectFromNetwork0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid) {
    return operate(environment, &WifiHostSettings::disconnectNetwork, iface, ssid);
}

PLATWIFI_NATIVE(jboolean, addNetwork0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid) {
    return operate(environment, &WifiHostSettings::addNetwork, iface, ssid);
}

PLATWIFI_NATIVE(jboolean, removeNetwork0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid) {
    return operate(environment, &WifiHostSettings::removeNetwork, iface, ssid);
}

PLATWIFI_NATIVE(jboolean, roamNetworks0)(JNIEnv* environment, jclass, jstring iface) {
    return operate(environment, &WifiHostSettings::roamNetworks, iface);
}

// Whether there are settings or not: none are made for it.
PLATWIFI_NATIVE(jboolean, unloadWifiSettings0)(JNIEnv* environment, jclass) {
    return callNative(environment, [](ErrorHandler*) -> jboolean {
        WifiHostSettings::unload();
        return JNI_TRUE;
    });
}

// Without a name the answer is exactly 0 or 1; with one it is the driver's, as it comes.
PLATWIFI_NATIVE(jboolean, isWifiEnabled0)(JNIEnv* environment, jclass, jstring iface) {
    if (!iface) {
        return callNative(environment, [](ErrorHandler*) -> jboolean {
            WifiUtil* const util = WifiUtil::getInstance();
            return util && util->isWifiEnabled(nullptr) ? JNI_TRUE : JNI_FALSE;
        });
    }
    const auto ask = [](ErrorHandler*, const char* name) -> jboolean {
        WifiUtil* const util = WifiUtil::getInstance();
        return util ? util->isWifiEnabled(name) : JNI_FALSE;
    };
    return callNative(environment, ask, iface);
}

PLATWIFI_NATIVE(jboolean, hashCACertificates0)(JNIEnv* environment, jclass) {
    return callNative(environment, [](ErrorHandler*) -> jboolean {
        WifiUtil* const util = WifiUtil::getInstance();
        return util && util->hashCACertificates() ? JNI_TRUE : JNI_FALSE;
    });
}

PLATWIFI_NATIVE(jboolean, saveHostSettings0)(JNIEnv* environment, jclass) {
    return callNative(environment, [](ErrorHandler* errors) -> jboolean {
        WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
        return settings && settings->saveNetworkSettings() ? JNI_TRUE : JNI_FALSE;
    });
}
