// Natives that read or change one field of one network, one a line.

#include "jni/CipherCode.h"
#include "jni/NativeCall.h"
#include "jni/Secrets.h"
#include "model/NetworkFields.h"
#include "platform/Crypt.h"

#include <memory>

using namespace platwifi;

namespace {

// False as soon as a change is none: the group ciphers then stay as they are.
bool setCiphers(WifiNetwork& network, unsigned int code) {
    const CipherSets sets = cipherSetsOf(code);
    return (!sets.pairwise || network.setPairwiseCiphers(*sets.pairwise)) &&
           (!sets.group || network.setGroupCiphers(*sets.group));
}

// A secret on its way to Java. Null for null, and after an error.
jstring newEncipheredString(JNIEnv* env, ErrorHandler* errors, const char* plain) {
    char* enciphered = nullptr;
    if (!plain || Crypt::encrypt(errors, plain, &enciphered) != 0)
        return nullptr;
    const std::unique_ptr<char[]> owner(enciphered);
    return platform::newJavaString(env, enciphered);
}

// Each kind of native is one function, and a native names its field: locks, strings and errors take much code, which
// the library has once in this way. A compiler that takes the function into its callers would copy it.

// Unsigned numbers cross to Java and back bit for bit.
[[gnu::noinline]] jint readNumber(JNIEnv* env, jstring iface, jstring ssid, Field field) {
    const NetworkCall call(env, iface, ssid);
    return call ? static_cast<jint>(NetworkFields::of(*call).number(field)) : 0;
}

[[gnu::noinline]] jstring readText(JNIEnv* env, jstring iface, jstring ssid, Field field) {
    NetworkCall call(env, iface, ssid);
    return call ? call.newString(NetworkFields::of(*call).text(field)) : nullptr;
}

[[gnu::noinline]] jstring readSecret(JNIEnv* env, jstring iface, jstring ssid, Field field) {
    NetworkCall call(env, iface, ssid);
    return call ? newEncipheredString(env, call.errors(), NetworkFields::of(*call).text(field))
                : nullptr;
}

[[gnu::noinline]] jboolean writeNumber(JNIEnv* env, jstring iface, jstring ssid, Field field,
                                       unsigned int value) {
    const NetworkCall call(env, iface, ssid);
    return call && NetworkFields::of(*call).setNumber(field, value);
}

[[gnu::noinline]] jboolean writeText(JNIEnv* env, jstring iface, jstring ssid, Field field,
                                     jstring value) {
    const NetworkCall call(env, iface, ssid, value);
    return call && NetworkFields::of(*call).setText(field, call.value());
}

[[gnu::noinline]] jboolean writeSecret(JNIEnv* env, jstring iface, jstring ssid, Field field,
                                       jstring value) {
    NetworkCall call(env, iface, ssid, value);
    if (!call)
        return JNI_FALSE;
    const DecipheredText plain(call.errors(), call.value());
    return plain && NetworkFields::of(*call).setText(field, plain.text());
}

} // namespace

// clang-format off

#define READER(Result, method)                                                                     \
    PLATWIFI_NATIVE(Result, method)(JNIEnv* env, jclass, jstring iface, jstring ssid)

#define WRITER(Value, method)                                                                      \
    PLATWIFI_NATIVE(jboolean, method)(JNIEnv* env, jclass, jstring iface, jstring ssid, Value value)

#define READS_NUMBER(method, field)                                                                \
    READER(jint, method) { return readNumber(env, iface, ssid, Field::field); }

#define READS_FLAG(method, field)                                                                  \
    READER(jboolean, method) { return readNumber(env, iface, ssid, Field::field) != 0; }

#define READS_TEXT(method, field)                                                                  \
    READER(jstring, method) { return readText(env, iface, ssid, Field::field); }

#define READS_SECRET(method, field)                                                                \
    READER(jstring, method) { return readSecret(env, iface, ssid, Field::field); }

#define WRITES_NUMBER(method, field)                                                               \
    WRITER(jint, method) {                                                                         \
        return writeNumber(env, iface, ssid, Field::field, static_cast<unsigned int>(value));      \
    }

#define WRITES_BYTE(method, field)                                                                 \
    WRITER(jint, method) {                                                                         \
        return writeNumber(env, iface, ssid, Field::field, static_cast<unsigned char>(value));     \
    }

#define WRITES_FLAG(method, field)                                                                 \
    WRITER(jboolean, method) {                                                                     \
        return writeNumber(env, iface, ssid, Field::field, value == JNI_TRUE ? 1 : 0);             \
    }

#define WRITES_TEXT(method, field)                                                                 \
    WRITER(jstring, method) { return writeText(env, iface, ssid, Field::field, value); }

#define WRITES_SECRET(method, field)                                                               \
    WRITER(jstring, method) { return writeSecret(env, iface, ssid, Field::field, value); }

// The natives.

READS_NUMBER(getAuthentication0, AUTH_ALG)
READS_NUMBER(getEAPMethod0, EAP_MODES)
READS_NUMBER(getProtocol0, PROTOCOL)
READS_NUMBER(getKeyManagement0, KEY_MANAGEMENT)
READS_NUMBER(getPriority0, PRIORITY)
READS_NUMBER(getNetworkMode0, NETWORK_MODE)
READS_NUMBER(getChannel0, CHANNEL)
READS_NUMBER(getStrength0, STRENGTH)
READS_NUMBER(getWepIndex0, WEP_INDEX)
READS_FLAG(getSsidBroadcasted0, SSID_BROADCASTED)
READS_TEXT(getBssid0, BSSID)
READS_TEXT(getEAPIdentity0, EAP_IDENTITY)
READS_TEXT(getEAPAnonymousIdentity0, EAP_IDENTITY) // quirk: API-1
READS_TEXT(getTunnelPhase10, PHASE1_STEP)
READS_TEXT(getTunnelPhase20, PHASE2_STEP)
READS_TEXT(getCACertificate0, CA_CERTIFICATE)
READS_TEXT(getCACertificateDir0, CA_CERTIFICATE_DIR)
READS_TEXT(getClientCertificate0, CLIENT_CERTIFICATE)
READS_TEXT(getPrivateKeyFile0, PRIVATE_KEY_FILE)
READS_TEXT(getCACertificate20, CA_CERTIFICATE2)
READS_TEXT(getCACertificateDir20, CA_CERTIFICATE_DIR2)
READS_TEXT(getClientCertificate20, CLIENT_CERTIFICATE2)
READS_TEXT(getPrivateKeyFile20, PRIVATE_KEY_FILE2)
READS_SECRET(getPreSharedKey0, PSK)
READS_SECRET(getEAPPassword0, EAP_PASSWORD)
READS_SECRET(getPrivateKeyPassword0, PRIVATE_KEY_PASSWORD)
READS_SECRET(getPrivateKeyPassword20, PRIVATE_KEY_PASSWORD2)

WRITES_NUMBER(setAuthentication0, AUTH_ALG)
WRITES_NUMBER(setKeyManagement0, KEY_MANAGEMENT)
WRITES_NUMBER(setProtocol0, PROTOCOL)
WRITES_NUMBER(setEAPMethod0, EAP_MODES)
WRITES_NUMBER(setNetworkStatus0, NETWORK_STATUS)
WRITES_NUMBER(setSignalStrength0, STRENGTH)
WRITES_BYTE(setPriority0, PRIORITY) // quirk: API-4
WRITES_BYTE(setNetworkMode0, NETWORK_MODE) // quirk: API-4
WRITES_FLAG(setSsidBroadcasted0, SSID_BROADCASTED)
WRITES_TEXT(setPreferredBssid0, BSSID)
WRITES_TEXT(setEAPIdentity0, EAP_IDENTITY)
WRITES_TEXT(setEAPAnonymousIdentity0, EAP_ANONYMOUS_IDENTITY)
WRITES_TEXT(setTunnelPhase10, PHASE1_STEP)
WRITES_TEXT(setTunnelPhase20, PHASE2_STEP)
WRITES_TEXT(setCACertificate0, CA_CERTIFICATE)
WRITES_TEXT(setCACertificateDir0, CA_CERTIFICATE_DIR)
WRITES_TEXT(setClientCertificate0, CLIENT_CERTIFICATE)
WRITES_TEXT(setPrivateKeyFile0, PRIVATE_KEY_FILE)
WRITES_TEXT(setCACertificate20, CA_CERTIFICATE2)
WRITES_TEXT(setCACertificateDir20, CA_CERTIFICATE_DIR2)
WRITES_TEXT(setClientCertificate20, CLIENT_CERTIFICATE2)
WRITES_TEXT(setPrivateKeyFile20, PRIVATE_KEY_FILE2)
WRITES_SECRET(setPreSharedKey0, PSK)
WRITES_SECRET(setEAPPassword0, EAP_PASSWORD)
WRITES_SECRET(setPrivateKeyPassword0, PRIVATE_KEY_PASSWORD)
WRITES_SECRET(setPrivateKeyPassword20, PRIVATE_KEY_PASSWORD2)

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
    return writeText(env, iface, ssid, Field::SSID, value);
}
