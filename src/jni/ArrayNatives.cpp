// Natives that return an array of strings.

#include "Profile.h"
#include "jni/JavaArray.h"
#include "jni/NativeCall.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

constexpr unsigned char WEP_KEYS = 4;

bool listAdapters(const WifiHostSettings& settings, ReplyLines& names) {
    return settings.getWifiAdapters(names.data(), names.capacity(), &names.count);
}

bool discover(const char* iface, ReplyLines& found) {
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->scanNetworks(iface) &&
           util->discoverNetworks(iface, found.data(), found.capacity(), &found.count);
}

bool listSsids(WifiHostSettings& settings, const char* iface, ReplyLines& ssids) {
    if (settings.getNetworkDatabaseSsids(iface, ssids.data(), ssids.capacity(), &ssids.count))
        return true;
    // A network has no SSID. The call has kept the lock, which other threads need.
    settings.unlockNetworks();
    return false;
}

jobjectArray toJava(JNIEnv* env, const ReplyLines& lines) {
    return newJavaArray(env, lines.data(), lines.count);
}

bool fillIn(JNIEnv* env, jobjectArray keys, const WifiNetwork& network) {
    for (unsigned char slot = 0; slot < WEP_KEYS; ++slot) {
        const char* const key = network.getWepKey(slot);
        if (key && !setElement(env, keys, slot, key))
            return false;
    }
    return true;
}

} // namespace

PLATWIFI_NATIVE(jobjectArray, getWifiAdapters0)(JNIEnv* env, jclass) {
    NativeCall call(env);
    ReplyLines names(rule::MOST_ADAPTERS());
    return listAdapters(call.settings(), names) ? toJava(env, names) : nullptr;
}

PLATWIFI_NATIVE(jobjectArray, discoverNetworks0)(JNIEnv* env, jclass, jstring iface) {
    const NativeCall call(env, iface);
    ReplyLines found(rule::MOST_NETWORKS());
    return discover(call.iface(), found) ? toJava(env, found) : nullptr;
}

PLATWIFI_NATIVE(jobjectArray, getNetworkDatabaseSsids0)(JNIEnv* env, jclass, jstring iface) {
    NativeCall call(env, iface);
    ReplyLines ssids(rule::MOST_NETWORKS());
    return listSsids(call.settings(), call.iface(), ssids) ? toJava(env, ssids) : nullptr;
}

// The array comes before the settings: it is also the result if there is no such network.
PLATWIFI_NATIVE(jobjectArray, getWepKeys0)(JNIEnv* env, jclass, jstring iface, jstring ssid) {
    NativeCall call(env, iface, ssid);
    jobjectArray const keys = newArrayOfEmptyTexts(env, WEP_KEYS);
    if (!keys)
        return nullptr;
    const SettingsLock lock(call.settings());
    const WifiNetwork* const network = call.settings().getNetwork(call.iface(), call.ssid());
    return !network || fillIn(env, keys, *network) ? keys : nullptr;
}
