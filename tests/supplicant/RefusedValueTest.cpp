// Values that the supplicant refuses, and fields that cannot be read.

#include "SupplicantTest.h"

using test::openNetworks;
using test::WLAN;
using testing::ElementsAre;

namespace {

struct Refused {
    const char* name;
    unsigned char id;
    const char* key;
    std::string value;
};

const Refused REFUSED[] = {
    {"PskTooShort", 0, "psk", "short"},
    {"PskTooLong", 0, "psk", std::string(65, 'p')},
    {"PskOf64CharactersThatAreNoDigits", 0, "psk", std::string(64, 'z')},
    {"EmptyPsk", 0, "psk", ""},
    {"WepKeyOf10CharactersThatAreNoDigits", 0, "wep_key0", std::string(10, 'z')},
    {"SsidTooLong", 0, "ssid", std::string(33, 'x')},
    {"TextWithAnOpeningQuoteOnly", 0, "ssid", "\"ab"},
    {"TextWithAClosingQuoteOnly", 0, "ssid", "ab\""},
    {"UnknownEapMethod", 0, "eap", "BOGUS"},
    {"UnknownAlgorithm", 0, "auth_alg", "BOGUS"},
    {"BssidThatIsNone", 0, "bssid", "home"},
    {"WordInPlaceOfANumber", 0, "priority", "high"},
    {"UnknownKey", 0, "no_such_key", "1"},
    // LOAD-15
    {"KeyThatThisSupplicantLacks", 0, "private_key_passwd2", "keypass"},
    {"EmptyKey", 0, "", "1"},
    {"UnknownNetwork", 7, "ssid", "home"},
    {"ValueLongerThanACommand", 0, "identity", std::string(5000, 'x')},
};

class RefusedValue : public test::SharedSupplicantTest,
                     public testing::WithParamInterface<Refused> {};

TEST_P(RefusedValue, FailsAndChangesNothing) {
    supplicant.reload(openNetworks({"net"}));
    ASSERT_THAT(supplicant.ask("save_config"), ElementsAre("OK"));
    const test::Lines before = supplicant.file();
    EXPECT_FALSE(
        util().setNetworkValue(WLAN, GetParam().id, GetParam().key, GetParam().value.c_str()));
    ASSERT_THAT(supplicant.ask("save_config"), ElementsAre("OK"));
    EXPECT_EQ(supplicant.file(), before);
}

INSTANTIATE_TEST_SUITE_P(Supplicant, RefusedValue, testing::ValuesIn(REFUSED),
                         [](const auto& refused) { return refused.param.name; });

class ReadValue : public test::SharedSupplicantTest {
protected:
    ReadValue() { supplicant.reload(openNetworks({"net"})); }

    bool read(const char* key, unsigned char id = 0) {
        return util().getNetworkValue(WLAN, id, key, value, sizeof(value));
    }

    char value[256] = "untouched";
};

// The supplicant drops the old value when it refuses a new one.
TEST_F(ReadValue, FailsAfterARefusedKeyManagement) {
    EXPECT_TRUE(read("key_mgmt"));
    EXPECT_STREQ(value, "NONE");
    EXPECT_FALSE(util().setNetworkValue(WLAN, 0, "key_mgmt", "BOGUS"));
    EXPECT_FALSE(read("key_mgmt"));
}

TEST_F(ReadValue, FailsForAFieldThatIsNotSet) {
    EXPECT_FALSE(read("psk"));
    EXPECT_FALSE(read("bssid"));
    EXPECT_FALSE(read("identity"));
    EXPECT_STREQ(value, "untouched");
}

TEST_F(ReadValue, FailsForAnUnknownKey) {
    EXPECT_FALSE(read("no_such_key"));
}

TEST_F(ReadValue, FailsForAnUnknownNetwork) {
    EXPECT_FALSE(read("ssid", 7));
}

TEST_F(ReadValue, FillsASmallBufferWithoutATerminator) {
    EXPECT_TRUE(util().getNetworkValue(WLAN, 0, "ssid", value, 2));
    EXPECT_STREQ(value, "netouched") << "two characters, and the rest unchanged";
}

// The library looks for the words of a refusal anywhere in the reply.
// REPLY-4
TEST_F(ReadValue, FailsForAValueThatReadsLikeARefusal) {
    for (const std::string ssid : {"FAILSAFE", "Invalid"}) {
        EXPECT_TRUE(util().setNetworkValue(WLAN, 0, "ssid", ssid.c_str()));
        EXPECT_THAT(supplicant.ask("get_network 0 ssid"), ElementsAre('"' + ssid + '"'));
        EXPECT_FALSE(read("ssid"));
    }
}

// A line of a reply has at most 127 characters. A longer text loses its closing quote; the library then
// cuts it at the last quote, which is the opening one.
// REPLY-9
TEST_F(ReadValue, IsEmptyForATextThatDoesNotFitALine) {
    EXPECT_TRUE(util().setNetworkValue(WLAN, 0, "identity", std::string(125, 'x').c_str()));
    EXPECT_TRUE(read("identity"));
    EXPECT_EQ(value, std::string(125, 'x'));
    EXPECT_TRUE(util().setNetworkValue(WLAN, 0, "identity", std::string(126, 'x').c_str()));
    EXPECT_TRUE(read("identity"));
    EXPECT_STREQ(value, "");
}

} // namespace
