// Natives that return an array of strings.

#include "jni/JavaArray.h"
#include "jni/NetworkFrame.h"
#include "model/WifiNetwork.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

constexpr unsigned char ADAPTERS = 2;
constexpr unsigned char NETWORKS = 32;
constexpr unsigned char WEP_KEYS = 4;

// The array of what `list(ErrorHandler*, ReplyLines&, const char*...)` lists, `capacity` at most; null
// when it fails.
template <typename List, typename... Strings>
jobjectArray callForArray(JNIEnv* environment, const List& list, unsigned char capacity,
                          Strings... strings) {
    const auto call = [&](ErrorHandler* errors, auto... texts) -> jobjectArray {
        ReplyLines lines(capacity);
        return list(errors, lines, texts...) ? newJavaArray(environment, lines.data(), lines.count)
                                             : nullptr;
    };
    return callNative(environment, call, strings...);
}

bool listAdapters(ErrorHandler* errors, ReplyLines& names) {
    const WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
    return settings && settings->getWifiAdapters(names.data(), names.capacity(), &names.count);
}

bool discover(ErrorHandler* /*errors*/, ReplyLines& found, const char* iface) {
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->scanNetworks(iface) &&
           util->discoverNetworks(iface, found.data(), found.capacity(), &found.count);
}

bool listSsids(ErrorHandler* errors, ReplyLines& ssids, const char* iface) {
    WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
    if (!settings)
        return false;
    if (settings->getNetworkDatabaseSsids(iface, ssids.data(), ssids.capacity(), &ssids.count))
        return true;
    settings->unlockNetworks(); // kept, since a network has no SSID; other threads wait for it
    return false;
}

bool setWepKeys(JNIEnv* environment, jobjectArray array, const WifiNetwork& network) {
    for (unsigned char i = 0; i < WEP_KEYS; ++i) {
        const char* const key = network.getWepKey(i);
        if (key && !setElement(environment, array, i, key))
            return false;
    }
    return true;
}

} // namespace

PLATWIFI_NATIVE(jobjectArray, getWifiAdapters0)(JNIEnv* environment, jclass) {
    return callForArray(environment, listAdapters, ADAPTERS);
}

PLATWIFI_NATIVE(jobjectArray, discoverNetworks0)(JNIEnv* environment, jclass, jstring iface) {
    return callForArray(environment, discover, NETWORKS, iface);
}

PLATWIFI_NATIVE(jobjectArray, getNetworkDatabaseSsids0)
(JNIEnv* environment, jclass, jstring iface) {
    return callForArray(environment, listSsids, NETWORKS, iface);
}

// The array comes first: it is the answer also where there is no such network.
PLATWIFI_NATIVE(jobjectArray, getWepKeys0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid) {
    const auto read = [=](ErrorHandler* errors, const char* name,
                          const char* wanted) -> jobjectArray {
        jobjectArray const keys = newArrayOfEmptyTexts(environment, WEP_KEYS);
        if (!keys)
            return nullptr;
        const bool failed =
            withNetwork(errors, name, wanted, false, [=](const WifiNetwork& network) {
                return !setWepKeys(environment, keys, network);
            });
        return failed ? nullptr : keys;
    };
    return callNative(environment, read, iface, ssid);
}
