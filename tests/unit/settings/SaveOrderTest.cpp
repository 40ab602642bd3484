// All fields of a network.

#include "SaveFields.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using N = WifiNetwork;

namespace {

class SaveAllFields : public SaveFields {
protected:
    void fillNumbers() {
        network.setSsidBroadcasted(true);
        network.setKeyManagement(KEY_MGMT_WPA_PSK);
        network.setPriority(5);
        network.setNetworkMode(NETWORK_MODE_MANAGED);
        network.setAuthAlg(AUTH_ALG_OPEN);
        network.setPairwiseCiphers(PAIRWISE_CCMP);
        network.setGroupCiphers(GROUP_TKIP);
        network.setEapModes(EAP_PEAP);
        network.setProtocol(PROTOCOL_RSN);
        network.setWepIndex(2);
        network.setChannel(6);
    }

    void fillTexts() {
        for (const TextRow& row : textRows())
            (network.*row.set)(row.name);
        for (unsigned int slot = 0; slot < 4; ++slot)
            network.setWepKey(slot, ("key" + std::to_string(slot)).c_str());
    }

    SaveAllFields() {
        fillNumbers();
        fillTexts();
    }

    static Calls everything() {
        return {
            setNetwork("ssid", R"("ssid")"),
            setNetwork("bssid", "bssid"),
            bssidCommand("bssid"),
            setNetwork("scan_ssid", "0"),
            setNetwork("key_mgmt", "WPA-PSK"),
            setNetwork("priority", "5"),
            setNetwork("mode", "0"),
            setNetwork("auth_alg", "OPEN"),
            setNetwork("pairwise", "CCMP"),
            setNetwork("group", "TKIP"),
            setNetwork("eap", "PEAP"),
            setNetwork("proto", "RSN"),
            setNetwork("wep_tx_keyidx", "2"),
            setNetwork("wep_key0", R"("key0")"),
            setNetwork("wep_key1", R"("key1")"),
            setNetwork("wep_key2", R"("key2")"),
            setNetwork("wep_key3", R"("key3")"),
            setNetwork("identity", R"("EAPIdentity")"),
            setNetwork("anonymous_identity", R"("EAPAnonymousIdentity")"),
            setNetwork("password", R"("EAPPassword")"),
            setNetwork("psk", R"("psk")"),
            setNetwork("ca_cert", R"("CACertificate")"),
            setNetwork("ca_path", R"("CACertificateDir")"),
            setNetwork("client_cert", R"("ClientCertificate")"),
            setNetwork("private_key", R"("PrivateKeyFile")"),
            setNetwork("private_key_passwd", R"("PrivateKeyPassword")"),
            setNetwork("phase1", R"("Phase1Step")"),
            setNetwork("phase2", R"("Phase2Step")"),
            setNetwork("ca_cert2", R"("CACertificate2")"),
            setNetwork("ca_path2", R"("CACertificateDir2")"),
            setNetwork("client_cert2", R"("ClientCertificate2")"),
            setNetwork("private_key2", R"("PrivateKeyFile2")"),
            setNetwork("private_key_passwd2", R"("PrivateKeyPassword2")"),
        };
    }
};

TEST_F(SaveAllFields, WritesEverythingInOneOrder) {
    EXPECT_EQ(save(), everything());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
    EXPECT_THAT(save(), IsEmpty()) << "once";
}

// SAVE-2
TEST_F(SaveAllFields, GoesOnAfterRefusalsAndClearsTheFlagsAllTheSame) {
    EXPECT_EQ(save("FAIL\n"), everything());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
}

TEST_F(SaveAllFields, SaysNothingAboutWhatIsRefused) {
    testing::internal::CaptureStderr();
    save("FAIL\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SaveAllFields, WithoutAnInterfaceClearTheFlagsAndRunNothing) {
    EXPECT_THAT(save("OK\n", nullptr), IsEmpty());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
}

TEST_F(SaveAllFields, KeepsTheValues) {
    const std::vector<std::string> before = test::valuesOf(network);
    save();
    EXPECT_EQ(test::valuesOf(network), before);
}

} // namespace
