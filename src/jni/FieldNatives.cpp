// Natives that read or change one field of one network, one a line.

#include "jni/CipherCode.h"
#include "jni/NativeCall.h"
#include "jni/Secrets.h"

using namespace platwifi;

namespace {

// False as soon as a change is none: the group ciphers then stay as they are.
bool setCiphers(WifiNetwork& network, unsigned int code) {
    const CipherSets sets = cipherSetsOf(code);
    return (!sets.pairwise || network.setPairwiseCiphers(*sets.pairwise)) &&
           (!sets.group || network.setGroupCiphers(*sets.group));
}

} // namespace

// clang-format off

#define READER(Result, method)                                                                     \
    PLATWIFI_NATIVE(Result, method)(JNIEnv* env, jclass, jstring iface, jstring ssid)

#define WRITER(Value, method)                                                                      \
    PLATWIFI_NATIVE(jboolean, method)(JNIEnv* env, jclass, jstring iface, jstring ssid, Value value)

// The kinds of natives. Unsigned numbers cross to Java and back bit for bit.

#define READS_NUMBER(method, getter)                                                               \
    READER(jint, method) {                                                                         \
        NetworkCall call(env, iface, ssid);                                                        \
        return call ? static_cast<jint>(call->getter()) : 0;                                       \
    }

#define READS_FLAG(method, getter)                                                                 \
    READER(jboolean, method) {                                                                     \
        NetworkCall call(env, iface, ssid);                                                        \
        return call && call->getter() != 0;                                                        \
    }

#define READS_TEXT(method, getter)                                                                 \
    READER(jstring, method) {                                                                      \
        NetworkCall call(env, iface, ssid);                                                        \
        return call ? call.newString(call->getter()) : nullptr;                                    \
    }

#define READS_SECRET(method, getter)                                                               \
    READER(jstring, method) {                                                                      \
        NetworkCall call(env, iface, ssid);                                                        \
        return call ? newEncipheredString(env, call.errors(), call->getter()) : nullptr;           \
    }

#define WRITES_NUMBER(method, setter)                                                              \
    WRITER(jint, method) {                                                                         \
        NetworkCall call(env, iface, ssid);                                                        \
        return call && call->setter(static_cast<unsigned int>(value));                             \
    }

#define WRITES_BYTE(method, setter)                                                                \
    WRITER(jint, method) {                                                                         \
        NetworkCall call(env, iface, ssid);                                                        \
        return call && call->setter(static_cast<unsigned char>(value));                            \
    }

#define WRITES_FLAG(method, setter)                                                                \
    WRITER(jboolean, method) {                                                                     \
        NetworkCall call(env, iface, ssid);                                                        \
        return call && call->setter(value == JNI_TRUE);                                            \
    }

#define WRITES_TEXT(method, setter)                                                                \
    WRITER(jstring, method) {                                                                      \
        NetworkCall call(env, iface, ssid, value);                                                 \
        return call && call->setter(call.value());                                                 \
    }

#define WRITES_SECRET(method, setter)                                                              \
    WRITER(jstring, method) {                                                                      \
        NetworkCall call(env, iface, ssid, value);                                                 \
        if (!call)                                                                                 \
            return JNI_FALSE;                                                                      \
        const DecipheredText plain(call.errors(), call.value());                                   \
        return plain && call->setter(plain.text());                                                \
    }

// The natives.

READS_NUMBER(getAuthentication0, getAuthAlg)
READS_NUMBER(getEAPMethod0, getEapModes)
READS_NUMBER(getProtocol0, getProtocol)
READS_NUMBER(getKeyManagement0, getKeyManagement)
READS_NUMBER(getPriority0, getPriority)
READS_NUMBER(getNetworkMode0, getNetworkMode)
READS_NUMBER(getChannel0, getChannel)
READS_NUMBER(getStrength0, getStrength)
READS_NUMBER(getWepIndex0, getWepIndex)
READS_FLAG(getSsidBroadcasted0, getSsidBroadcasted)
READS_TEXT(getBssid0, getBssid)
READS_TEXT(getEAPIdentity0, getEAPIdentity)
READS_TEXT(getEAPAnonymousIdentity0, getEAPIdentity) // quirk: API-1
READS_TEXT(getTunnelPhase10, getPhase1Step)
READS_TEXT(getTunnelPhase20, getPhase2Step)
READS_TEXT(getCACertificate0, getCACertificate)
READS_TEXT(getCACertificateDir0, getCACertificateDir)
READS_TEXT(getClientCertificate0, getClientCertificate)
READS_TEXT(getPrivateKeyFile0, getPrivateKeyFile)
READS_TEXT(getCACertificate20, getCACertificate2)
READS_TEXT(getCACertificateDir20, getCACertificateDir2)
READS_TEXT(getClientCertificate20, getClientCertificate2)
READS_TEXT(getPrivateKeyFile20, getPrivateKeyFile2)
READS_SECRET(getPreSharedKey0, getPsk)
READS_SECRET(getEAPPassword0, getEAPPassword)
READS_SECRET(getPrivateKeyPassword0, getPrivateKeyPassword)
READS_SECRET(getPrivateKeyPassword20, getPrivateKeyPassword2)

WRITES_NUMBER(setAuthentication0, setAuthAlg)
WRITES_NUMBER(setKeyManagement0, setKeyManagement)
WRITES_NUMBER(setProtocol0, setProtocol)
WRITES_NUMBER(setEAPMethod0, setEapModes)
WRITES_NUMBER(setNetworkStatus0, setNetworkStatus)
WRITES_NUMBER(setSignalStrength0, setStrength)
WRITES_BYTE(setPriority0, setPriority) // quirk: API-4
WRITES_BYTE(setNetworkMode0, setNetworkMode) // quirk: API-4
WRITES_FLAG(setSsidBroadcasted0, setSsidBroadcasted)
WRITES_TEXT(setPreferredBssid0, setBssid)
WRITES_TEXT(setEAPIdentity0, setEAPIdentity)
WRITES_TEXT(setEAPAnonymousIdentity0, setEAPAnonymousIdentity)
WRITES_TEXT(setTunnelPhase10, setPhase1Step)
WRITES_TEXT(setTunnelPhase20, setPhase2Step)
WRITES_TEXT(setCACertificate0, setCACertificate)
WRITES_TEXT(setCACertificateDir0, setCACertificateDir)
WRITES_TEXT(setClientCertificate0, setClientCertificate)
WRITES_TEXT(setPrivateKeyFile0, setPrivateKeyFile)
WRITES_TEXT(setCACertificate20, setCACertificate2)
WRITES_TEXT(setCACertificateDir20, setCACertificateDir2)
WRITES_TEXT(setClientCertificate20, setClientCertificate2)
WRITES_TEXT(setPrivateKeyFile20, setPrivateKeyFile2)
WRITES_SECRET(setPreSharedKey0, setPsk)
WRITES_SECRET(setEAPPassword0, setEAPPassword)
WRITES_SECRET(setPrivateKeyPassword0, setPrivateKeyPassword)
WRITES_SECRET(setPrivateKeyPassword20, setPrivateKeyPassword2)

// clang-format on

// Each of its own kind.

READER(jint, getSupportedEncrytptionMethods0) {
    NetworkCall call(env, iface, ssid);
    return call ? static_cast<jint>(call->getPairwiseCiphers() | call->getGroupCiphers()) : 0;
}

WRITER(jint, setEncryption0) {
    NetworkCall call(env, iface, ssid);
    return call && setCiphers(*call, static_cast<unsigned int>(value));
}

// quirk: API-6. These two are true also if there is no such network, and if nothing changes.

WRITER(jint, setWepIndex0) {
    NetworkCall call(env, iface, ssid);
    if (call)
        call->setWepIndex(static_cast<unsigned int>(value));
    return JNI_TRUE;
}

PLATWIFI_NATIVE(jboolean, setWepKey0)
(JNIEnv* env, jclass, jstring iface, jstring ssid, jint index, jstring value) {
    NetworkCall call(env, iface, ssid, value);
    if (call)
        call->setWepKey(static_cast<unsigned int>(index), call.value());
    return JNI_TRUE;
}

// quirk: API-2. Under its C++ name, which a virtual machine does not look up.
JNIEXPORT jboolean JNICALL Java_com_quorvel_platwifi_BWifiPlatformService_setSsid0(
    JNIEnv* env, jclass, jstring iface, jstring ssid, jstring value) {
    NetworkCall call(env, iface, ssid, value);
    return call && call->setSsid(call.value());
}
