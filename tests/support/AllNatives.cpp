// What a virtual machine would call: one row a native.

#include "support/AllNatives.h"

#include <stdexcept>

namespace {

// What natives take behind environment and class.

template <typename Result>
using Plain = Result(JNIEnv*, jclass);

template <typename Result>
using OnInterface = Result(JNIEnv*, jclass, jstring);

template <typename Result>
using OnNetwork = Result(JNIEnv*, jclass, jstring, jstring);

template <typename Value>
using Takes = jboolean(JNIEnv*, jclass, jstring, jstring, Value);

using TakesKey = jboolean(JNIEnv*, jclass, jstring, jstring, jint, jstring);

} // namespace

// In the order of the Java class. One has a C++ name; see API-2.
// clang-format off
#define NATIVE_METHODS(C, CPP)                             \
    C(OnInterface<jboolean>, isWifiEnabled0)               \
    C(Plain<jobjectArray>, getWifiAdapters0)               \
    C(OnInterface<jint>, getDaemonStatus0)                 \
    C(OnInterface<jobjectArray>, discoverNetworks0)        \
    C(Plain<jboolean>, hashCACertificates0)                \
    C(OnInterface<jobjectArray>, getNetworkDatabaseSsids0) \
    C(OnInterface<jstring>, getCurrentNetwork0)            \
    C(OnNetwork<jboolean>, addNetwork0)                    \
    C(OnNetwork<jboolean>, removeNetwork0)                 \
    C(OnNetwork<jboolean>, connectToNetwork0)              \
    C(OnNetwork<jboolean>, disconnectFromNetwork0)         \
    C(OnInterface<jboolean>, roamNetworks0)                \
    C(Plain<jboolean>, saveHostSettings0)                  \
    C(Plain<jboolean>, unloadWifiSettings0)                \
    C(OnNetwork<jint>, getAuthentication0)                 \
    C(OnNetwork<jboolean>, getSsidBroadcasted0)            \
    C(OnNetwork<jint>, getEAPMethod0)                      \
    C(OnNetwork<jint>, getProtocol0)                       \
    C(OnNetwork<jint>, getKeyManagement0)                  \
    C(OnNetwork<jint>, getPriority0)                       \
    C(OnNetwork<jint>, getNetworkMode0)                    \
    C(OnNetwork<jint>, getChannel0)                        \
    C(OnNetwork<jint>, getStrength0)                       \
    C(OnNetwork<jint>, getWepIndex0)                       \
    C(OnNetwork<jint>, getSupportedEncrytptionMethods0)    \
    C(OnNetwork<jint>, getNetworkStatus0)                  \
    C(OnNetwork<jstring>, getBssid0)                       \
    C(OnNetwork<jstring>, getEAPIdentity0)                 \
    C(OnNetwork<jstring>, getEAPAnonymousIdentity0)        \
    C(OnNetwork<jstring>, getTunnelPhase10)                \
    C(OnNetwork<jstring>, getTunnelPhase20)                \
    C(OnNetwork<jstring>, getCACertificate0)               \
    C(OnNetwork<jstring>, getCACertificateDir0)            \
    C(OnNetwork<jstring>, getClientCertificate0)           \
    C(OnNetwork<jstring>, getPrivateKeyFile0)              \
    C(OnNetwork<jstring>, getCACertificate20)              \
    C(OnNetwork<jstring>, getCACertificateDir20)           \
    C(OnNetwork<jstring>, getClientCertificate20)          \
    C(OnNetwork<jstring>, getPrivateKeyFile20)             \
    C(OnNetwork<jobjectArray>, getWepKeys0)                \
    C(OnNetwork<jstring>, getPreSharedKey0)                \
    C(OnNetwork<jstring>, getEAPPassword0)                 \
    C(OnNetwork<jstring>, getPrivateKeyPassword0)          \
    C(OnNetwork<jstring>, getPrivateKeyPassword20)         \
    CPP(Takes<jstring>, setSsid0)                          \
    C(Takes<jstring>, setPreferredBssid0)                  \
    C(Takes<jstring>, setEAPIdentity0)                     \
    C(Takes<jstring>, setEAPAnonymousIdentity0)            \
    C(Takes<jstring>, setTunnelPhase10)                    \
    C(Takes<jstring>, setTunnelPhase20)                    \
    C(Takes<jstring>, setCACertificate0)                   \
    C(Takes<jstring>, setCACertificateDir0)                \
    C(Takes<jstring>, setClientCertificate0)               \
    C(Takes<jstring>, setPrivateKeyFile0)                  \
    C(Takes<jstring>, setCACertificate20)                  \
    C(Takes<jstring>, setCACertificateDir20)               \
    C(Takes<jstring>, setClientCertificate20)              \
    C(Takes<jstring>, setPrivateKeyFile20)                 \
    C(Takes<jint>, setAuthentication0)                     \
    C(Takes<jint>, setKeyManagement0)                      \
    C(Takes<jint>, setProtocol0)                           \
    C(Takes<jint>, setEAPMethod0)                          \
    C(Takes<jint>, setNetworkStatus0)                      \
    C(Takes<jint>, setSignalStrength0)                     \
    C(Takes<jint>, setPriority0)                           \
    C(Takes<jint>, setNetworkMode0)                        \
    C(Takes<jint>, setWepIndex0)                           \
    C(Takes<jboolean>, setSsidBroadcasted0)                \
    C(Takes<jint>, setEncryption0)                         \
    C(TakesKey, setWepKey0)                                \
    C(Takes<jstring>, setPreSharedKey0)                    \
    C(Takes<jstring>, setEAPPassword0)                     \
    C(Takes<jstring>, setPrivateKeyPassword0)              \
    C(Takes<jstring>, setPrivateKeyPassword20)
// clang-format on

#define NATIVE(method) Java_com_quorvel_platwifi_BWifiPlatformService_##method

#define DECLARE_C(Type, method) extern "C" Type NATIVE(method);
#define DECLARE_CPP(Type, method) Type NATIVE(method);
NATIVE_METHODS(DECLARE_C, DECLARE_CPP)

namespace test {
namespace {

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
    return with.flag;
}

template <typename Result>
NativeResult run(Plain<Result>* native, JNIEnv* environment, const NativeArguments& /*with*/) {
    return native(environment, nullptr);
}

template <typename Result>
NativeResult run(OnInterface<Result>* native, JNIEnv* environment, const NativeArguments& with) {
    return native(environment, nullptr, with.iface);
}

template <typename Result, typename... Values>
NativeResult run(Result (*native)(JNIEnv*, jclass, jstring, jstring, Values...),
                 JNIEnv* environment, const NativeArguments& with) {
    return native(environment, nullptr, with.iface, with.ssid, valueOf<Values>(with)...);
}

template <auto Function>
NativeResult call(JNIEnv* environment, const NativeArguments& with) {
    return run(Function, environment, with);
}

} // namespace

#define ROW(Type, method) {#method, call<NATIVE(method)>},
const Native NATIVES[] = {NATIVE_METHODS(ROW, ROW)};
const std::size_t NATIVE_COUNT = sizeof(NATIVES) / sizeof(NATIVES[0]);

const Native& nativeCalled(const std::string& name) {
    for (const Native& native : NATIVES) {
        if (name == native.name)
            return native;
    }
    throw std::invalid_argument("no native is called " + name);
}

} // namespace test
