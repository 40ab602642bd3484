// Calls that read and change the settings in memory. They run no command once the settings are
// loaded.

#include "Calls.h"
#include "Supplicant.h"
#include "jni/ServiceFunctions.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "support/FakeJni.h"

#include <algorithm>
#include <cstring>

#define NATIVE(method) Java_com_quorvel_platwifi_BWifiPlatformService_##method

extern "C" {
jobjectArray NATIVE(getWifiAdapters0)(JNIEnv*, jclass);
jobjectArray NATIVE(getNetworkDatabaseSsids0)(JNIEnv*, jclass, jstring);
jobjectArray NATIVE(getWepKeys0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(setWepKey0)(JNIEnv*, jclass, jstring, jstring, jint, jstring);
}

#define NUMBER_FIELDS(field)                                                                       \
    field(Authentication) field(EAPMethod) field(Protocol) field(KeyManagement) field(Priority)    \
        field(NetworkMode)
#define TEXT_FIELDS(field)                                                                         \
    field(TunnelPhase1) field(TunnelPhase2) field(CACertificate) field(CACertificateDir)           \
        field(ClientCertificate) field(PrivateKeyFile) field(CACertificate2)                       \
            field(ClientCertificate2) field(PrivateKeyFile2)
#define DECLARE_NUMBER(field)                                                                      \
    extern "C" jint NATIVE(get##field##0)(JNIEnv*, jclass, jstring, jstring);                      \
    extern "C" jboolean NATIVE(set##field##0)(JNIEnv*, jclass, jstring, jstring, jint);
#define DECLARE_TEXT(field)                                                                        \
    extern "C" jstring NATIVE(get##field##0)(JNIEnv*, jclass, jstring, jstring);                   \
    extern "C" jboolean NATIVE(set##field##0)(JNIEnv*, jclass, jstring, jstring, jstring);
NUMBER_FIELDS(DECLARE_NUMBER)
TEXT_FIELDS(DECLARE_TEXT)
DECLARE_TEXT(EAPIdentity)

namespace stress {
namespace {

constexpr const char* IFACE = "wlan0";

struct NumberField {
    jint (*get)(JNIEnv*, jclass, jstring, jstring);
    jboolean (*set)(JNIEnv*, jclass, jstring, jstring, jint);
};

struct TextField {
    jstring (*get)(JNIEnv*, jclass, jstring, jstring);
    jboolean (*set)(JNIEnv*, jclass, jstring, jstring, jstring);
};

#define FIELD_ROW(field) {NATIVE(get##field##0), NATIVE(set##field##0)},
constexpr NumberField NUMBERS[] = {NUMBER_FIELDS(FIELD_ROW)};
constexpr TextField TEXTS[] = {TEXT_FIELDS(FIELD_ROW)};
constexpr TextField IDENTITY = {NATIVE(getEAPIdentity0), NATIVE(setEAPIdentity0)};

// By this identity the model of the supplicant checks that the value is for this network.
std::string identityFor(const std::string& ssid, Random& random) {
    return ssid + '#' + std::to_string(random.below(1000));
}

void readNumber(Worker& worker) {
    test::FakeJni& java = worker.java();
    worker.random.oneOf(NUMBERS).get(java.environment(), nullptr, java.javaString(IFACE),
                                     java.javaString(worker.random.oneOf(FIXED_NETWORKS)));
}

void writeNumber(Worker& worker) {
    test::FakeJni& java = worker.java();
    worker.random.oneOf(NUMBERS).set(java.environment(), nullptr, java.javaString(IFACE),
                                     java.javaString(worker.random.oneOf(FIXED_NETWORKS)),
                                     static_cast<jint>(1U << worker.random.below(4)));
}

void readText(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jstring text =
        worker.random.oneOf(TEXTS).get(java.environment(), nullptr, java.javaString(IFACE),
                                       java.javaString(worker.random.oneOf(FIXED_NETWORKS)));
    expect(!text || java.textOf(text).compare(0, 5, "/etc/") == 0 || java.textOf(text).empty(),
           "a text was never set");
}

void writeText(Worker& worker) {
    test::FakeJni& java = worker.java();
    const std::string text =
        worker.random.oneIn(3) ? "" : "/etc/" + std::to_string(worker.random.below(1000));
    worker.random.oneOf(TEXTS).set(java.environment(), nullptr, java.javaString(IFACE),
                                   java.javaString(worker.random.oneOf(FIXED_NETWORKS)),
                                   java.javaString(text));
}

void readIdentity(Worker& worker) {
    test::FakeJni& java = worker.java();
    const std::string& ssid = worker.random.oneOf(FIXED_NETWORKS);
    const jstring identity =
        IDENTITY.get(java.environment(), nullptr, java.javaString(IFACE), java.javaString(ssid));
    expect(!identity || java.textOf(identity).compare(0, ssid.size() + 1, ssid + '#') == 0,
           "a network has the identity of another one");
}

void writeIdentity(Worker& worker) {
    test::FakeJni& java = worker.java();
    const std::string& ssid = worker.random.oneOf(FIXED_NETWORKS);
    IDENTITY.set(java.environment(), nullptr, java.javaString(IFACE), java.javaString(ssid),
                 java.javaString(identityFor(ssid, worker.random)));
}

void setParameters(Worker& worker) {
    const std::string& ssid = worker.random.oneOf(FIXED_NETWORKS);
    const std::string identity = identityFor(ssid, worker.random);
    const std::string priority = std::to_string(worker.random.below(100));
    const char* const names[] = {"eapIdentity", "priority", "phase1"};
    const char* const values[] = {identity.c_str(), priority.c_str(), "/etc/phase"};
    expect(setNetworkParameters(nullptr, IFACE, ssid.c_str(), names, values, 3) == 1,
           "a configured network cannot be changed");
    expect(setNetworkParameters(nullptr, IFACE, "unknown", names, values, 3) == 0,
           "a network that is not configured can be changed");
}

void setHost(Worker&) {
    expect(setHostParameters(nullptr, IFACE, nullptr, nullptr, 0) == 1, "setHostParameters failed");
}

// While another thread unloads or loads the settings, there is no adapter.
void readAdapter(Worker&) {
    char* name = nullptr;
    const int found = getWifiAdapter(nullptr, &name);
    expect((found == 1) == (name != nullptr), "an adapter without a name, or the reverse");
    expect(!name || std::strcmp(name, IFACE) == 0, "the adapter is wrong");
    delete[] name;
}

void readAdaptersNative(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jobjectArray names = NATIVE(getWifiAdapters0)(java.environment(), nullptr);
    for (const auto& name : java.elementsOf(names))
        expect(name == IFACE, "the native's adapter is wrong");
}

// Other threads add and remove networks meanwhile.
void checkSsids(const Worker& worker, const std::vector<std::string>& ssids) {
    const auto countOf = [&](const std::string& ssid) {
        return std::count(ssids.begin(), ssids.end(), ssid);
    };
    for (const std::string& ssid : FIXED_NETWORKS)
        expect(countOf(ssid) == 1, "a configured network is not listed once");
    expect(countOf(worker.guest) == (worker.hasGuest ? 1 : 0),
           "the list is wrong about the guest network");
    const auto isGuest = [](const std::string& ssid) { return ssid.rfind("guest-", 0) == 0; };
    const auto guests = std::count_if(ssids.begin(), ssids.end(), isGuest);
    expect(ssids.size() == FIXED_NETWORKS.size() + static_cast<std::size_t>(guests),
           "a network is listed that was never configured");
}

void listSsids(Worker& worker) {
    platwifi::ReplyLines lines(32);
    expect(WifiHostSettings::getInstance(nullptr)->getNetworkDatabaseSsids(
               IFACE, lines.data(), lines.capacity(), &lines.count),
           "the networks cannot be listed");
    checkSsids(worker, {lines.data(), lines.data() + lines.count});
}

void listSsidsNative(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jobjectArray array =
        NATIVE(getNetworkDatabaseSsids0)(java.environment(), nullptr, java.javaString(IFACE));
    expect(array != nullptr, "the native cannot list the networks");
    std::vector<std::string> ssids;
    for (const auto& ssid : java.elementsOf(array))
        ssids.push_back(ssid.value_or(""));
    checkSsids(worker, ssids);
}

void readWepKeys(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jobjectArray keys =
        NATIVE(getWepKeys0)(java.environment(), nullptr, java.javaString(IFACE),
                            java.javaString(worker.random.oneOf(FIXED_NETWORKS)));
    expect(java.elementsOf(keys).size() == 4, "there are not four WEP keys");
}

void writeWepKey(Worker& worker) {
    test::FakeJni& java = worker.java();
    NATIVE(setWepKey0)
    (java.environment(), nullptr, java.javaString(IFACE),
     java.javaString(worker.random.oneOf(FIXED_NETWORKS)),
     static_cast<jint>(worker.random.below(4)), java.javaString("01234"));
}

} // namespace

Calls memoryCalls() {
    return {
        {"a getter of a number", 80, readNumber},
        {"a setter of a number", 40, writeNumber},
        {"a getter of a text", 80, readText},
        {"a setter of a text", 40, writeText},
        {"getEAPIdentity0", 30, readIdentity},
        {"setEAPIdentity0", 20, writeIdentity},
        {"setNetworkParameters", 30, setParameters},
        {"setHostParameters", 10, setHost},
        {"getWifiAdapter", 20, readAdapter},
        {"getWifiAdapters0", 20, readAdaptersNative},
        {"getNetworkDatabaseSsids", 30, listSsids},
        {"getNetworkDatabaseSsids0", 30, listSsidsNative},
        {"getWepKeys0", 10, readWepKeys},
        {"setWepKey0", 5, writeWepKey},
    };
}

} // namespace stress
