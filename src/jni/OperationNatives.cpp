// Natives that carry out one whole operation.

#include "jni/Frame.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

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
