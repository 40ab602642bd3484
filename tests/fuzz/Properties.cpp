// Properties of a network by their names, as native callers set them.

#include "Input.h"
#include "Require.h"

#include "jni/NetworkProperties.h"
#include "model/WifiNetwork.h"
#include "platform/Crypt.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

using fuzz::Input;

namespace {

constexpr const char* KEY_FILE = "/tmp/fuzz-properties.key"; // in the private world

constexpr const char* NAMES[] = {
    "authentication",
    "bssid",
    "channel",
    "clientCertificate",
    "clientCertificate2",
    "CACertificateFile",
    "CACertificateDir",
    "CACertificateFile2",
    "CACertificateDir2",
    "eapIdentity",
    "eapAnonymousIdentity",
    "encryption",
    "eap",
    "index",
    "key1",
    "key2",
    "key3",
    "key4",
    "key_mgmt",
    "mode",
    "phase1",
    "phase2",
    "priority",
    "protocol",
    "privateKeyFile",
    "privateKeyFile2",
    "ssid",
    "strength",
    "status",
    "ssidBroadcasted",
};
constexpr unsigned int NAME_COUNT = sizeof(NAMES) / sizeof(NAMES[0]);

using Get = const char* (WifiNetwork::*)() const;
using IsDirty = bool (WifiNetwork::*)() const;

struct Text {
    const char* name;
    Get get;
    IsDirty isDirty;
};

using N = WifiNetwork;

constexpr Text SECRETS[] = {
    {"psk", &N::getPsk, &N::getPskDirty},
    {"eapPassword", &N::getEAPPassword, &N::getEAPPasswordDirty},
    {"privateKeyPassword", &N::getPrivateKeyPassword, &N::getPrivateKeyPasswordDirty},
    {"privateKeyPassword2", &N::getPrivateKeyPassword2, &N::getPrivateKeyPassword2Dirty},
};

constexpr Text TEXTS[] = {
    {"ssid", &N::getSsid, &N::getSsidDirty},
    {"bssid", &N::getBssid, &N::getBssidDirty},
    {"eapIdentity", &N::getEAPIdentity, &N::getEAPIdentityDirty},
    {"eapAnonymousIdentity", &N::getEAPAnonymousIdentity, &N::getEAPAnonymousIdentityDirty},
    {"CACertificateFile", &N::getCACertificate, &N::getCACertificateDirty},
    {"CACertificateDir", &N::getCACertificateDir, &N::getCACertificateDirDirty},
    {"clientCertificate", &N::getClientCertificate, &N::getClientCertificateDirty},
    {"privateKeyFile", &N::getPrivateKeyFile, &N::getPrivateKeyFileDirty},
    {"phase1", &N::getPhase1Step, &N::getPhase1StepDirty},
    {"phase2", &N::getPhase2Step, &N::getPhase2StepDirty},
    {"CACertificateFile2", &N::getCACertificate2, &N::getCACertificate2Dirty},
    {"CACertificateDir2", &N::getCACertificateDir2, &N::getCACertificateDir2Dirty},
    {"clientCertificate2", &N::getClientCertificate2, &N::getClientCertificate2Dirty},
    {"privateKeyFile2", &N::getPrivateKeyFile2, &N::getPrivateKeyFile2Dirty},
};

using Copy = std::optional<std::string>;

Copy copyOf(const char* text) {
    return text ? Copy(text) : Copy();
}

struct State {
    std::vector<Copy> texts;
    std::vector<unsigned int> numbers;

    bool operator!=(const State& other) const {
        return texts != other.texts || numbers != other.numbers;
    }
};

State stateOf(const WifiNetwork& network) {
    State state;
    for (const Text& text : TEXTS)
        state.texts.push_back(copyOf((network.*text.get)()));
    for (const Text& secret : SECRETS)
        state.texts.push_back(copyOf((network.*secret.get)()));
    for (unsigned int slot = 0; slot < 4; ++slot)
        state.texts.push_back(copyOf(network.getWepKey(slot)));
    state.numbers = {
        network.getNetworkMode(),   network.getChannel(),         network.getPriority(),
        network.getProtocol(),      network.getKeyManagement(),   network.getAuthAlg(),
        network.getGroupCiphers(),  network.getPairwiseCiphers(), network.getEapModes(),
        network.getWepIndex(),      network.getSsidBroadcasted(), network.getNetworkId(),
        network.getNetworkStatus(), network.getStrength()};
    return state;
}

bool isKnown(const std::string& name) {
    for (const char* const known : NAMES) {
        if (name == known)
            return true;
    }
    for (const Text& secret : SECRETS) {
        if (name == secret.name)
            return true;
    }
    return false;
}

std::string enciphered(const std::string& plain) {
    char* text = nullptr;
    REQUIRE(Crypt::encrypt(nullptr, plain.c_str(), &text) == 0);
    const std::unique_ptr<char[]> owner(text);
    return text;
}

// An enciphered secret is stored as plain text; any other text changes nothing and is reported.
void setSecret(WifiNetwork& network, const Text& secret, Input& input) {
    const State before = stateOf(network);
    const Copy old = copyOf((network.*secret.get)());
    const bool isEnciphered = input.below(16) == 0; // it costs a hundred times as much
    const std::string value = input.text();
    ErrorHandler errors;
    const std::string given = isEnciphered ? enciphered(value) : value;
    platwifi::setNetworkProperty(network, secret.name, given.c_str(), &errors);
    const Copy now = copyOf((network.*secret.get)());
    if (isEnciphered) {
        REQUIRE(now == (value.empty() && !old ? Copy() : Copy(value)));
        REQUIRE(now == old || (network.*secret.isDirty)());
    } else if (value.empty()) {
        REQUIRE(now == (old == Copy("") ? old : Copy())); // null over "" is no change
    } else {
        REQUIRE(!(stateOf(network) != before) && errors.savedError());
    }
}

// An empty value clears a text; the BSSID is then the empty text.
Copy expected(const char* name, const std::string& value, const Copy& old) {
    if (!value.empty())
        return value;
    return std::strcmp(name, "bssid") == 0 && old ? Copy("") : Copy();
}

void requireTexts(const WifiNetwork& network, const std::string& name, const std::string& value,
                  const State& before) {
    for (std::size_t i = 0; i < sizeof(TEXTS) / sizeof(TEXTS[0]); ++i) {
        const Copy now = copyOf((network.*TEXTS[i].get)());
        const bool isMeant = name == TEXTS[i].name && name != "ssid";
        REQUIRE_FOR(
            now == (isMeant ? expected(TEXTS[i].name, value, before.texts[i]) : before.texts[i]),
            name);
        REQUIRE_FOR(now == before.texts[i] || (network.*TEXTS[i].isDirty)(), name);
    }
}

void setPlain(WifiNetwork& network, const std::string& name, const std::string& value) {
    const State before = stateOf(network);
    ErrorHandler errors;
    platwifi::setNetworkProperty(network, name.c_str(), value.c_str(), &errors);
    REQUIRE(!errors.savedError() && network.getWepIndex() <= 3);
    REQUIRE(isKnown(name) || !(stateOf(network) != before));
    requireTexts(network, name, value, before);
}

void setOne(WifiNetwork& network, Input& input) {
    const unsigned int choice = input.byte();
    if (choice < NAME_COUNT)
        return setPlain(network, NAMES[choice], input.text());
    if (choice < NAME_COUNT + 4)
        return setSecret(network, SECRETS[choice - NAME_COUNT], input);
    const std::string name = input.text();
    for (const Text& secret : SECRETS) {
        if (name == secret.name)
            return setSecret(network, secret, input);
    }
    setPlain(network, name, input.text());
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int keyFile = setenv("PLATFORM_KEY_FILE", KEY_FILE, 1);
    REQUIRE(keyFile == 0);
    Input input(data, size);
    WifiNetwork network;
    network.setSsid("home");
    network.cleanDirtyFields();
    for (int edits = 0; edits < 8 && !input.isEmpty(); ++edits)
        setOne(network, input);
    platwifi::setNetworkProperty(network, nullptr, nullptr, nullptr);
    REQUIRE(network.getNetworkDirty() || !network.getPskDirty());
    return 0;
}
