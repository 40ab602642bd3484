// Natives that read or change one field of one network, one a line.

#include "jni/CipherCode.h"
#include "jni/NetworkFrame.h"
#include "jni/Secrets.h"
#include "model/WifiNetwork.h"
#include "platform/JavaText.h"

#include <functional>

using namespace platwifi;

namespace {

using N = WifiNetwork;

jboolean toJava(bool value) {
    return value ? JNI_TRUE : JNI_FALSE;
}

// Reading. `Get` is a getter of WifiNetwork, or a function that takes a network.

template <auto Get>
jint readNumber(JNIEnv* environment, jstring iface, jstring ssid) {
    const auto read = [](const N& network, ErrorHandler*) {
        return static_cast<jint>(std::invoke(Get, network)); // bit for bit
    };
    return callOnNetwork(environment, read, iface, ssid);
}

template <auto Get>
jboolean readFlag(JNIEnv* environment, jstring iface, jstring ssid) {
    const auto read = [](const N& network, ErrorHandler*) {
        return toJava(std::invoke(Get, network) != 0);
    };
    return callOnNetwork(environment, read, iface, ssid);
}

template <auto Get>
jstring readText(JNIEnv* environment, jstring iface, jstring ssid) {
    const auto read = [=](const N& network, ErrorHandler*) {
        return platform::newJavaString(environment, std::invoke(Get, network));
    };
    return callOnNetwork(environment, read, iface, ssid);
}

template <auto Get>
jstring readSecret(JNIEnv* environment, jstring iface, jstring ssid) {
    const auto read = [=](const N& network, ErrorHandler* errors) {
        return newEncipheredString(environment, errors, std::invoke(Get, network));
    };
    return callOnNetwork(environment, read, iface, ssid);
}

unsigned int allCiphers(const N& network) {
    return network.getPairwiseCiphers() | network.getGroupCiphers();
}

// Changing. `Set` is a setter of WifiNetwork, or a function that takes a network and the value.

template <auto Set>
jboolean writeText(JNIEnv* environment, jstring iface, jstring ssid, jstring value) {
    const auto write = [](N& network, ErrorHandler*, const char* text) {
        return toJava(std::invoke(Set, network, text));
    };
    return callOnNetwork(environment, write, iface, ssid, value);
}

template <auto Set>
jboolean writeSecret(JNIEnv* environment, jstring iface, jstring ssid, jstring value) {
    const auto write = [](N& network, ErrorHandler* errors, const char* text) {
        return toJava(setDeciphered(
            errors, text, [&](const char* plain) { return std::invoke(Set, network, plain); }));
    };
    return callOnNetwork(environment, write, iface, ssid, value);
}

template <auto Set, typename Value>
jboolean writeValue(JNIEnv* environment, jstring iface, jstring ssid, Value value) {
    const auto write = [=](N& network, ErrorHandler*) {
        return toJava(std::invoke(Set, network, value));
    };
    return callOnNetwork(environment, write, iface, ssid);
}

template <auto Set>
jboolean writeNumber(JNIEnv* environment, jstring iface, jstring ssid, jint value) {
    return writeValue<Set>(environment, iface, ssid, static_cast<unsigned int>(value));
}

template <auto Set>
jboolean writeByte(JNIEnv* environment, jstring iface, jstring ssid, jint value) {
    return writeValue<Set>(environment, iface, ssid, static_cast<unsigned char>(value));
}

template <auto Set>
jboolean writeFlag(JNIEnv* environment, jstring iface, jstring ssid, jboolean value) {
    return writeValue<Set>(environment, iface, ssid, value == JNI_TRUE);
}

// Where the first change is none, the second is not made.
bool setCiphers(N& network, unsigned int code) {
    const CipherSets sets = cipherSetsOf(code);
    return (!sets.pairwise || network.setPairwiseCiphers(*sets.pairwise)) &&
           (!sets.group || network.setGroupCiphers(*sets.group));
}

// True without a change too, and without such a network.
template <typename Write, typename... Strings>
jboolean writeUntold(JNIEnv* environment, const Write& write, jstring iface, jstring ssid,
                     Strings... strings) {
    const auto find = [&](ErrorHandler* errors, const char* name, const char* wanted,
                          auto... texts) {
        const auto run = [&](N& network) {
            write(network, texts...);
            return jboolean{JNI_TRUE};
        };
        return withNetwork(errors, name, wanted, jboolean{JNI_TRUE}, run);
    };
    return callNative(environment, find, iface, ssid, strings...);
}

} // namespace

#define GETTER(Result, method, read)                                                               \
    PLATWIFI_NATIVE(Result, method)                                                                \
    (JNIEnv * environment, jclass, jstring iface, jstring ssid) {                                  \
        return read(environment, iface, ssid);                                                     \
    }

#define SETTER(Value, method, write)                                                               \
    PLATWIFI_NATIVE(jboolean, method)                                                              \
    (JNIEnv * environment, jclass, jstring iface, jstring ssid, Value value) {                     \
        return write(environment, iface, ssid, value);                                             \
    }

// clang-format off

GETTER(jint, getAuthentication0, readNumber<&N::getAuthAlg>)
GETTER(jboolean, getSsidBroadcasted0, readFlag<&N::getSsidBroadcasted>)
GETTER(jint, getEAPMethod0, readNumber<&N::getEapModes>)
GETTER(jint, getProtocol0, readNumber<&N::getProtocol>)
GETTER(jint, getKeyManagement0, readNumber<&N::getKeyManagement>)
GETTER(jint, getPriority0, readNumber<&N::getPriority>)
GETTER(jint, getNetworkMode0, readNumber<&N::getNetworkMode>)
GETTER(jint, getChannel0, readNumber<&N::getChannel>)
GETTER(jint, getStrength0, readNumber<&N::getStrength>)
GETTER(jint, getWepIndex0, readNumber<&N::getWepIndex>)
GETTER(jint, getSupportedEncrytptionMethods0, readNumber<allCiphers>)
GETTER(jstring, getBssid0, readText<&N::getBssid>)
GETTER(jstring, getEAPIdentity0, readText<&N::getEAPIdentity>)
GETTER(jstring, getEAPAnonymousIdentity0, readText<&N::getEAPIdentity>) // deliberately the same
GETTER(jstring, getTunnelPhase10, readText<&N::getPhase1Step>)
GETTER(jstring, getTunnelPhase20, readText<&N::getPhase2Step>)
GETTER(jstring, getCACertificate0, readText<&N::getCACertificate>)
GETTER(jstring, getCACertificateDir0, readText<&N::getCACertificateDir>)
GETTER(jstring, getClientCertificate0, readText<&N::getClientCertificate>)
GETTER(jstring, getPrivateKeyFile0, readText<&N::getPrivateKeyFile>)
GETTER(jstring, getCACertificate20, readText<&N::getCACertificate2>)
GETTER(jstring, getCACertificateDir20, readText<&N::getCACertificateDir2>)
GETTER(jstring, getClientCertificate20, readText<&N::getClientCertificate2>)
GETTER(jstring, getPrivateKeyFile20, readText<&N::getPrivateKeyFile2>)

GETTER(jstring, getPreSharedKey0, readSecret<&N::getPsk>)
GETTER(jstring, getEAPPassword0, readSecret<&N::getEAPPassword>)
GETTER(jstring, getPrivateKeyPassword0, readSecret<&N::getPrivateKeyPassword>)
GETTER(jstring, getPrivateKeyPassword20, readSecret<&N::getPrivateKeyPassword2>)

SETTER(jstring, setPreferredBssid0, writeText<&N::setBssid>)
SETTER(jstring, setEAPIdentity0, writeText<&N::setEAPIdentity>)
SETTER(jstring, setEAPAnonymousIdentity0, writeText<&N::setEAPAnonymousIdentity>)
SETTER(jstring, setTunnelPhase10, writeText<&N::setPhase1Step>)
SETTER(jstring, setTunnelPhase20, writeText<&N::setPhase2Step>)
SETTER(jstring, setCACertificate0, writeText<&N::setCACertificate>)
SETTER(jstring, setCACertificateDir0, writeText<&N::setCACertificateDir>)
SETTER(jstring, setClientCertificate0, writeText<&N::setClientCertificate>)
SETTER(jstring, setPrivateKeyFile0, writeText<&N::setPrivateKeyFile>)
SETTER(jstring, setCACertificate20, writeText<&N::setCACertificate2>)
SETTER(jstring, setCACertificateDir20, writeText<&N::setCACertificateDir2>)
SETTER(jstring, setClientCertificate20, writeText<&N::setClientCertificate2>)
SETTER(jstring, setPrivateKeyFile20, writeText<&N::setPrivateKeyFile2>)
SETTER(jint, setAuthentication0, writeNumber<&N::setAuthAlg>)
SETTER(jint, setKeyManagement0, writeNumber<&N::setKeyManagement>)
SETTER(jint, setProtocol0, writeNumber<&N::setProtocol>)
SETTER(jint, setEAPMethod0, writeNumber<&N::setEapModes>)
SETTER(jint, setNetworkStatus0, writeNumber<&N::setNetworkStatus>)
SETTER(jint, setSignalStrength0, writeNumber<&N::setStrength>)
SETTER(jint, setPriority0, writeByte<&N::setPriority>)
SETTER(jint, setNetworkMode0, writeByte<&N::setNetworkMode>)
SETTER(jboolean, setSsidBroadcasted0, writeFlag<&N::setSsidBroadcasted>)
SETTER(jint, setEncryption0, writeNumber<setCiphers>)

SETTER(jstring, setPreSharedKey0, writeSecret<&N::setPsk>)
SETTER(jstring, setEAPPassword0, writeSecret<&N::setEAPPassword>)
SETTER(jstring, setPrivateKeyPassword0, writeSecret<&N::setPrivateKeyPassword>)
SETTER(jstring, setPrivateKeyPassword20, writeSecret<&N::setPrivateKeyPassword2>)

// clang-format on

PLATWIFI_NATIVE(jboolean, setWepIndex0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid, jint value) {
    const auto write = [=](N& network) { network.setWepIndex(static_cast<unsigned int>(value)); };
    return writeUntold(environment, write, iface, ssid);
}

PLATWIFI_NATIVE(jboolean, setWepKey0)
(JNIEnv* environment, jclass, jstring iface, jstring ssid, jint index, jstring value) {
    const auto write = [=](N& network, const char* key) {
        network.setWepKey(static_cast<unsigned int>(index), key);
    };
    return writeUntold(environment, write, iface, ssid, value);
}

// Deliberately under its C++ name, where a virtual machine does not find it by itself.
JNIEXPORT jboolean JNICALL Java_com_quorvel_platwifi_BWifiPlatformService_setSsid0(
    JNIEnv* environment, jclass, jstring iface, jstring ssid, jstring value) {
    return writeText<&N::setSsid>(environment, iface, ssid, value);
}
