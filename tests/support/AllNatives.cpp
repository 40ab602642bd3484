// What a virtual machine would call: one row a native. Which arguments it takes is in its declaration.

#include "support/AllNatives.h"

#define NATIVE(method) Java_com_quorvel_platwifi_BWifiPlatformService_##method

#define PLAIN(Result, method) Result NATIVE(method)(JNIEnv*, jclass);
#define ON_INTERFACE(Result, method) Result NATIVE(method)(JNIEnv*, jclass, jstring);
#define ON_NETWORK(Result, method) Result NATIVE(method)(JNIEnv*, jclass, jstring, jstring);
#define TAKES(Value, method) jboolean NATIVE(method)(JNIEnv*, jclass, jstring, jstring, Value);

// clang-format off
extern "C" {
ON_INTERFACE(jboolean, isWifiEnabled0)
PLAIN(jobjectArray, getWifiAdapters0)
ON_INTERFACE(jint, getDaemonStatus0)
ON_INTERFACE(jobjectArray, discoverNetworks0)
PLAIN(jboolean, hashCACertificates0)
ON_INTERFACE(jobjectArray, getNetworkDatabaseSsids0)
ON_INTERFACE(jstring, getCurrentNetwork0)
ON_NETWORK(jboolean, addNetwork0)
ON_NETWORK(jboolean, removeNetwork0)
ON_NETWORK(jboolean, connectToNetwork0)
ON_NETWORK(jboolean, disconnectFromNetwork0)
ON_INTERFACE(jboolean, roamNetworks0)
PLAIN(jboolean, saveHostSettings0)
PLAIN(jboolean, unloadWifiSettings0)
ON_NETWORK(jint, getAuthentication0)
ON_NETWORK(jboolean, getSsidBroadcasted0)
ON_NETWORK(jint, getEAPMethod0)
ON_NETWORK(jint, getProtocol0)
ON_NETWORK(jint, getKeyManagement0)
ON_NETWORK(jint, getPriority0)
ON_NETWORK(jint, getNetworkMode0)
ON_NETWORK(jint, getChannel0)
ON_NETWORK(jint, getStrength0)
ON_NETWORK(jint, getWepIndex0)
ON_NETWORK(jint, getSupportedEncrytptionMethods0)
ON_NETWORK(jint, getNetworkStatus0)
ON_NETWORK(jstring, getBssid0)
ON_NETWORK(jstring, getEAPIdentity0)
ON_NETWORK(jstring, getEAPAnonymousIdentity0)
ON_NETWORK(jstring, getTunnelPhase10)
ON_NETWORK(jstring, getTunnelPhase20)
ON_NETWORK(jstring, getCACertificate0)
ON_NETWORK(jstring, getCACertificateDir0)
ON_NETWORK(jstring, getClientCertificate0)
ON_NETWORK(jstring, getPrivateKeyFile0)
ON_NETWORK(jstring, getCACertificate20)
ON_NETWORK(jstring, getCACertificateDir20)
ON_NETWORK(jstring, getClientCertificate20)
ON_NETWORK(jstring, getPrivateKeyFile20)
ON_NETWORK(jobjectArray, getWepKeys0)
ON_NETWORK(jstring, getPreSharedKey0)
ON_NETWORK(jstring, getEAPPassword0)
ON_NETWORK(jstring, getPrivateKeyPassword0)
ON_NETWORK(jstring, getPrivateKeyPassword20)
TAKES(jstring, setPreferredBssid0)
TAKES(jstring, setEAPIdentity0)
TAKES(jstring, setEAPAnonymousIdentity0)
TAKES(jstring, setTunnelPhase10)
TAKES(jstring, setTunnelPhase20)
TAKES(jstring, setCACertificate0)
TAKES(jstring, setCACertificateDir0)
TAKES(jstring, setClientCertificate0)
TAKES(jstring, setPrivateKeyFile0)
TAKES(jstring, setCACertificate20)
TAKES(jstring, setCACertificateDir20)
TAKES(jstring, setClientCertificate20)
TAKES(jstring, setPrivateKeyFile20)
TAKES(jint, setAuthentication0)
TAKES(jint, setKeyManagement0)
TAKES(jint, setProtocol0)
TAKES(jint, setEAPMethod0)
TAKES(jint, setNetworkStatus0)
TAKES(jint, setSignalStrength0)
TAKES(jint, setPriority0)
TAKES(jint, setNetworkMode0)
TAKES(jint, setWepIndex0)
TAKES(jboolean, setSsidBroadcasted0)
TAKES(jint, setEncryption0)
jboolean NATIVE(setWepKey0)(JNIEnv*, jclass, jstring, jstring, jint, jstring);
TAKES(jstring, setPreSharedKey0)
TAKES(jstring, setEAPPassword0)
TAKES(jstring, setPrivateKeyPassword0)
TAKES(jstring, setPrivateKeyPassword20)
}
TAKES(jstring, setSsid0) // under its C++ name
// clang-format on

namespace test {
namespace {

template <typename Result>
void run(Result (*native)(JNIEnv*, jclass), JNIEnv* environment, const NativeArguments& /*with*/) {
    native(environment, nullptr);
}

template <typename Result>
void run(Result (*native)(JNIEnv*, jclass, jstring), JNIEnv* environment,
         const NativeArguments& with) {
    native(environment, nullptr, with.iface);
}

// The value that a native takes behind interface and SSID.
template <typename Value>
Value valueOf(const NativeArguments& with);

template <>
jstring valueOf(const NativeArguments& with) {
    return with.text;
}

template <>
jint valueOf(const NativeArguments& with) {
    return with.number;
}

template <>
jboolean valueOf(const NativeArguments& with) {
    return with.flag ? JNI_TRUE : JNI_FALSE;
}

template <typename Result, typename... Values>
void run(Result (*native)(JNIEnv*, jclass, jstring, jstring, Values...), JNIEnv* environment,
         const NativeArguments& with) {
    native(environment, nullptr, with.iface, with.ssid, valueOf<Values>(with)...);
}

template <auto Function>
void call(JNIEnv* environment, const NativeArguments& with) {
    run(Function, environment, with);
}

} // namespace

// clang-format off
#define ROW(method) {#method, call<NATIVE(method)>}

const Native NATIVES[] = {
    ROW(isWifiEnabled0),
    ROW(getWifiAdapters0),
    ROW(getDaemonStatus0),
    ROW(discoverNetworks0),
    ROW(hashCACertificates0),
    ROW(getNetworkDatabaseSsids0),
    ROW(getCurrentNetwork0),
    ROW(addNetwork0),
    ROW(removeNetwork0),
    ROW(connectToNetwork0),
    ROW(disconnectFromNetwork0),
    ROW(roamNetworks0),
    ROW(saveHostSettings0),
    ROW(unloadWifiSettings0),
    ROW(getAuthentication0),
    ROW(getSsidBroadcasted0),
    ROW(getEAPMethod0),
    ROW(getProtocol0),
    ROW(getKeyManagement0),
    ROW(getPriority0),
    ROW(getNetworkMode0),
    ROW(getChannel0),
    ROW(getStrength0),
    ROW(getWepIndex0),
    ROW(getSupportedEncrytptionMethods0),
    ROW(getNetworkStatus0),
    ROW(getBssid0),
    ROW(getEAPIdentity0),
    ROW(getEAPAnonymousIdentity0),
    ROW(getTunnelPhase10),
    ROW(getTunnelPhase20),
    ROW(getCACertificate0),
    ROW(getCACertificateDir0),
    ROW(getClientCertificate0),
    ROW(getPrivateKeyFile0),
    ROW(getCACertificate20),
    ROW(getCACertificateDir20),
    ROW(getClientCertificate20),
    ROW(getPrivateKeyFile20),
    ROW(getWepKeys0),
    ROW(getPreSharedKey0),
    ROW(getEAPPassword0),
    ROW(getPrivateKeyPassword0),
    ROW(getPrivateKeyPassword20),
    ROW(setSsid0),
    ROW(setPreferredBssid0),
    ROW(setEAPIdentity0),
    ROW(setEAPAnonymousIdentity0),
    ROW(setTunnelPhase10),
    ROW(setTunnelPhase20),
    ROW(setCACertificate0),
    ROW(setCACertificateDir0),
    ROW(setClientCertificate0),
    ROW(setPrivateKeyFile0),
    ROW(setCACertificate20),
    ROW(setCACertificateDir20),
    ROW(setClientCertificate20),
    ROW(setPrivateKeyFile20),
    ROW(setAuthentication0),
    ROW(setKeyManagement0),
    ROW(setProtocol0),
    ROW(setEAPMethod0),
    ROW(setNetworkStatus0),
    ROW(setSignalStrength0),
    ROW(setPriority0),
    ROW(setNetworkMode0),
    ROW(setWepIndex0),
    ROW(setSsidBroadcasted0),
    ROW(setEncryption0),
    ROW(setWepKey0),
    ROW(setPreSharedKey0),
    ROW(setEAPPassword0),
    ROW(setPrivateKeyPassword0),
    ROW(setPrivateKeyPassword20),
};
// clang-format on
const std::size_t NATIVE_COUNT = sizeof(NATIVES) / sizeof(NATIVES[0]);

} // namespace test
