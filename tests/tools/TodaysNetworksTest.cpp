// Networks with the security of today, and networks of any name.

#include "CommandFixture.h"

using test::Arguments;
using test::platwifi;
using test::WRONG_USE;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class TodaysNetworks : public test::CommandFixture {
protected:
    TodaysNetworks() {
        on({"get_capability", "key_mgmt"}).prints("NONE WPA-PSK WPA-EAP SAE");
        on({"get_capability", "pairwise"}).prints("CCMP TKIP");
        on({"add_network"}).prints("1\n");
        accept({"enable_network", "*"});
        accept({"remove_network", "*"});
    }
};

TEST_F(TodaysNetworks, AddOneWithAKeyOfAnyLength) {
    serve({"home"});
    outputOf(platwifi({"add", "cafe", "key_mgmt=SAE", "psk=-"}, "k\n"));
    EXPECT_THAT(changes(),
                ElementsAre("add_network", "set_network 1 ssid \"cafe\"", "enable_network 1",
                            "set_network 1 ssid \"cafe\"", "set_network 1 key_mgmt SAE",
                            "set_network 1 sae_password \"k\"", "set_network 1 ieee80211w 2",
                            "save_config", "reconfigure"));
}

TEST_F(TodaysNetworks, AddOneForBothGenerations) {
    serve({});
    outputOf(platwifi({"add", "cafe", "key_mgmt=WPA-PSK,SAE", "psk=-"}, "correct horse\n"));
    EXPECT_THAT(changes(), Contains("set_network 1 key_mgmt WPA-PSK SAE"));
    EXPECT_THAT(changes(), Contains("set_network 1 psk \"correct horse\""));
    EXPECT_THAT(changes(), Contains("set_network 1 sae_password \"correct horse\""));
    EXPECT_THAT(changes(), Contains("set_network 1 ieee80211w 1"));
}

TEST_F(TodaysNetworks, SetProtectionAndCiphers) {
    serve({"home"});
    outputOf(platwifi({"set", "home", "pmf=required", "encryption=CCMP"}));
    EXPECT_THAT(changes(), ElementsAre("set_network 0 pairwise CCMP", "set_network 0 group CCMP",
                                       "set_network 0 ieee80211w 2", "save_config", "reconfigure"));
}

TEST_F(TodaysNetworks, NeedALongKeyWhereAPreSharedKeyIsAllowed) {
    on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK SAE");
    on({"get_network", "1", "key_mgmt"}).prints("SAE");
    serve({"both", "wpa3"});
    const char* const says = "psk takes 8 to 63 characters";
    expectFailure(platwifi({"add", "cafe", "key_mgmt=WPA-PSK,SAE", "psk=-"}, "k\n"), says,
                  WRONG_USE);
    expectFailure(platwifi({"add", "cafe", "psk=-"}, "k\n"), says, WRONG_USE);
    expectFailure(platwifi({"set", "both", "psk=-"}, "k\n"), says, WRONG_USE);
    EXPECT_THAT(changes(), IsEmpty());
    outputOf(platwifi({"set", "wpa3", "psk=-"}, "k\n"));
    EXPECT_THAT(changes(),
                ElementsAre("set_network 1 sae_password \"k\"", "save_config", "reconfigure"));
}

TEST_F(TodaysNetworks, NeedAKeyForEachMethodWithOne) {
    for (const char* const method : {"SAE", "FT-PSK", "WPA-PSK-SHA256"})
        expectFailure(platwifi({"add", "cafe", std::string("key_mgmt=") + method}),
                      std::string("key_mgmt=") + method + " needs a key: psk=-", WRONG_USE);
}

// Otherwise a network that can never be joined would be saved.
TEST_F(TodaysNetworks, AreRefusedWhereTheSupplicantCannotDoThem) {
    serve({"home"});
    const struct {
        Arguments command;
        const char* word;
    } refused[] = {
        {{"add", "cafe", "key_mgmt=OWE"}, "OWE"},
        {{"set", "home", "key_mgmt=WPA-PSK,FT-PSK"}, "FT-PSK"},
        {{"set", "home", "key_mgmt=WPA-EAP-SUITE-B-192"}, "WPA-EAP-SUITE-B-192"},
        {{"set", "home", "encryption=CCMP,GCMP-256"}, "GCMP-256"},
    };
    for (const auto& one : refused)
        expectFailure(platwifi(one.command),
                      std::string("wlan0 cannot do ") + one.word + ", nothing was changed");
    EXPECT_THAT(changes(), Not(Contains(HasSubstr("set_network"))));
    EXPECT_THAT(changes(), Not(Contains("add_network")));
}

TEST_F(TodaysNetworks, AreNotRefusedForWordsThatAreNeverListed) {
    serve({"home"});
    for (const char* const method : {"WPA-PSK-SHA256", "WPA-EAP-SHA256", "FT-SAE", "IEEE8021X"})
        outputOf(platwifi({"set", "home", std::string("key_mgmt=") + method}));
}

using OldSupplicant = test::CommandFixture;

TEST_F(OldSupplicant, TakesWhatItDoesNotList) {
    serve({"home"}); // get_capability answers FAIL
    outputOf(platwifi({"set", "home", "key_mgmt=SAE"}));
    EXPECT_THAT(changes(), Contains("set_network 0 key_mgmt SAE"));
}

TEST_F(TodaysNetworks, NameTheFieldThatTheSupplicantRefuses) {
    on({"set_network", "0", "phase1", "\"bad\""}).prints("FAIL\n");
    serve({"home"});
    expectFailure(platwifi({"set", "home", "priority=3", "phase1=bad"}),
                  "the supplicant refused the field phase1; nothing was saved");
    EXPECT_EQ(callsOf({"save_config"}), 0U);
    EXPECT_EQ(changes().back(), "reconfigure");
}

TEST_F(TodaysNetworks, NeedCertificatesThatExist) {
    serve({"home"});
    expectFailure(platwifi({"set", "home", "CACertificateFile=/tmp/missing.pem"}),
                  "CACertificateFile: there is no /tmp/missing.pem");
    EXPECT_THAT(host.calls(), IsEmpty()) << "nothing was sent";
}

/// A name, and how the client prints it.
struct Name {
    const char* title;
    std::string ssid;
    const char* printed;
    const char* sent; ///< in set_network
};

const Name NAMES[] = {
    {"Colon", "Cafe: upstairs", "Cafe: upstairs", "\"Cafe: upstairs\""},
    {"Any", "any", "any", "\"any\""},
    {"Blank", " leading blank", " leading blank", "\" leading blank\""},
    {"Quotes", "Kim's \"Caf\u00e9\" \\ x=1", R"(Kim's \"Caf\xc3\xa9\" \\ x=1)",
     "4b696d27732022436166c3a922205c20783d31"},
    {"Emoji", "\U0001F600\U0001F601", R"(\xf0\x9f\x98\x80\xf0\x9f\x98\x81)", "f09f9880f09f9881"},
    {"Bytes", "\xff\xfe\xd0", R"(\xff\xfe\xd0)", "fffed0"},
    {"Hyphen", "-guest", "-guest", "\"-guest\""},
};

struct AnyName : TodaysNetworks, testing::WithParamInterface<Name> {};

TEST_P(AnyName, IsAdded) {
    serve({"home"});
    outputOf(platwifi({"add", "--", GetParam().ssid, "key_mgmt=NONE"}));
    EXPECT_THAT(changes(), Contains(std::string("set_network 1 ssid ") + GetParam().sent));
    EXPECT_THAT(changes(), Contains("save_config"));
}

TEST_P(AnyName, IsFoundBesideSimilarNames) {
    serve({"Cafe", "anything", GetParam().printed, "leading blank", "guest"});
    EXPECT_THAT(outputOf(platwifi({"show", "--", GetParam().ssid})),
                HasSubstr("ssid             "));
    outputOf(platwifi({"set", "--", GetParam().ssid, "priority=7"}));
    outputOf(platwifi({"remove", "--", GetParam().ssid}));
    EXPECT_THAT(changes(), ElementsAre("set_network 2 priority 7", "save_config", "reconfigure",
                                       "remove_network 2", "save_config", "reconfigure"));
}

TEST_P(AnyName, IsFoundAsItIsShown) {
    serve({GetParam().printed});
    const std::string list = outputOf(platwifi({"networks"}));
    const std::string row = list.substr(list.find('\n') + 1);
    const std::string cell = row.substr(0, row.find("  enabled"));
    const std::string shown = cell.substr(0, cell.find_last_not_of(' ') + 1);
    EXPECT_THAT(outputOf(platwifi({"show", "--", shown})), HasSubstr(shown));
    EXPECT_THAT(outputOf(platwifi({"show", "--", GetParam().printed})), HasSubstr(shown));
}

std::string titleOf(const testing::TestParamInfo<Name>& name) {
    return name.param.title;
}

INSTANTIATE_TEST_SUITE_P(Names, AnyName, testing::ValuesIn(NAMES), titleOf);

} // namespace
