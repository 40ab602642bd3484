// Texts: names, paths and secrets.

#include "SaveFields.h"

#include <iterator>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using N = WifiNetwork;

namespace {

struct Text {
    const char* name; // of its flag
    const char* key;
    void (*set)(WifiNetwork&, const char*);
};

template <bool (WifiNetwork::*Set)(const char*)>
void setText(WifiNetwork& network, const char* text) {
    (network.*Set)(text);
}

template <unsigned int Slot>
void setWepKey(WifiNetwork& network, const char* key) {
    network.setWepKey(Slot, key);
}

const Text PLAIN_TEXTS[] = {
    {"EAPIdentity", "identity", setText<&N::setEAPIdentity>},
    {"EAPAnonymousIdentity", "anonymous_identity", setText<&N::setEAPAnonymousIdentity>},
    {"CACertificate", "ca_cert", setText<&N::setCACertificate>},
    {"CACertificateDir", "ca_path", setText<&N::setCACertificateDir>},
    {"ClientCertificate", "client_cert", setText<&N::setClientCertificate>},
    {"PrivateKeyFile", "private_key", setText<&N::setPrivateKeyFile>},
    {"Phase1Step", "phase1", setText<&N::setPhase1Step>},
    {"Phase2Step", "phase2", setText<&N::setPhase2Step>},
    {"CACertificate2", "ca_cert2", setText<&N::setCACertificate2>},
    {"CACertificateDir2", "ca_path2", setText<&N::setCACertificateDir2>},
    {"ClientCertificate2", "client_cert2", setText<&N::setClientCertificate2>},
    {"PrivateKeyFile2", "private_key2", setText<&N::setPrivateKeyFile2>},
};

const Text SECRETS[] = {
    {"wepKey0", "wep_key0", setWepKey<0>},
    {"wepKey1", "wep_key1", setWepKey<1>},
    {"wepKey2", "wep_key2", setWepKey<2>},
    {"wepKey3", "wep_key3", setWepKey<3>},
    {"EAPPassword", "password", setText<&N::setEAPPassword>},
    {"psk", "psk", setText<&N::setPsk>},
    {"PrivateKeyPassword", "private_key_passwd", setText<&N::setPrivateKeyPassword>},
    {"PrivateKeyPassword2", "private_key_passwd2", setText<&N::setPrivateKeyPassword2>},
};

unsigned char slotOf(const Text& wepKey) {
    return static_cast<unsigned char>(std::string(wepKey.name).back() - '0');
}

std::vector<Text> allTexts() {
    std::vector<Text> texts(std::begin(PLAIN_TEXTS), std::end(PLAIN_TEXTS));
    texts.insert(texts.end(), std::begin(SECRETS), std::end(SECRETS));
    return texts;
}

// TEXT-4
TEST_F(SaveFields, WritesATextAndClearsItsFlag) {
    for (const Text& text : allTexts()) {
        SCOPED_TRACE(text.name);
        const auto edit = [&](WifiNetwork& edited) {
            text.set(edited, text.key);
            EXPECT_THAT(dirty(), ElementsAre(text.name));
        };
        EXPECT_THAT(saveAfter(edit), ElementsAre(setNetwork(text.key, inQuotes(text.key))));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

// SAVE-8
TEST_F(SaveFields, WritesATextThatWasUnsetAsAnEmptyOne) {
    for (const Text& text : allTexts()) {
        SCOPED_TRACE(text.name);
        text.set(network, "before");
        const auto unset = [&](WifiNetwork& edited) {
            text.set(edited, nullptr);
            EXPECT_THAT(dirty(), ElementsAre(text.name));
        };
        EXPECT_THAT(saveAfter(unset), ElementsAre(setNetwork(text.key, inQuotes(""))));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

// SAVE-8
TEST_F(SaveFields, WritesAnEmptyTextAsAnEmptyOne) {
    for (const Text& text : allTexts()) {
        SCOPED_TRACE(text.name);
        text.set(network, "before");
        network.cleanDirtyFields();
        text.set(network, "");
        if (dirty().empty()) // an empty key does not mark its slot
            network.setWepKeyDirty(true, slotOf(text));
        EXPECT_THAT(save(), ElementsAre(setNetwork(text.key, inQuotes(""))));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

TEST_F(SaveFields, WritesNoTextThatIsClean) {
    for (const Text& text : allTexts())
        text.set(network, "a value");
    EXPECT_THAT(saveAfter([](WifiNetwork&) {}), IsEmpty());
}

// SAVE-9
TEST_F(SaveFields, WritesNoMaskButClearsTheFlag) {
    for (const Text& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        EXPECT_THAT(saveAfter([&](WifiNetwork& edited) { secret.set(edited, "*"); }), IsEmpty());
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

TEST_F(SaveFields, WritesASecretThatOnlyBeginsLikeTheMask) {
    for (const Text& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        EXPECT_THAT(saveAfter([&](WifiNetwork& edited) { secret.set(edited, "**"); }),
                    ElementsAre(setNetwork(secret.key, inQuotes("**"))));
    }
}

TEST_F(SaveFields, WritesAStarWhereItMasksNothing) {
    for (const Text& text : PLAIN_TEXTS) {
        SCOPED_TRACE(text.name);
        EXPECT_THAT(saveAfter([&](WifiNetwork& edited) { text.set(edited, "*"); }),
                    ElementsAre(setNetwork(text.key, inQuotes("*"))));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

} // namespace
