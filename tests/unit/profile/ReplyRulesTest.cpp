// What the words and lines of the client mean under each profile.

#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/PrintedSsid.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "settings/replies/ValueWords.h"
#include "settings/report/DumpWords.h"
#include "settings/report/SecurityType.h"
#include "supplicant/Arguments.h"
#include "supplicant/ValueQuoting.h"

#include "support/UseProfile.h"
#include "support/WordTable.h"

#include <gtest/gtest.h>

#include <string>

using namespace platwifi;
using test::DEVICE;
using test::MODERN;
using test::under;

namespace {

struct Listed {
    std::string ssid;
    std::string bssid;
    int id;
};

bool operator==(const Listed& left, const Listed& right) {
    return left.ssid == right.ssid && left.bssid == right.bssid && left.id == right.id;
}

std::ostream& operator<<(std::ostream& out, const Listed& listed) {
    return out << listed.id << " " << listed.ssid << " " << listed.bssid;
}

// The network of a line; id -1 for none.
Listed read(Profile profile, const std::string& line) {
    return under(profile, [&]() -> Listed {
        WifiNetwork network;
        if (!readListLine(line, network))
            return {"", "", -1};
        return {network.getSsid(), network.getBssid(), network.getNetworkId()};
    });
}

// PROFILE-3
TEST(ReplyRules, ColumnsOfTheList) {
    const std::string none = "00:00:00:00:00:00";
    EXPECT_EQ(read(DEVICE, "1\tCafe: up\tany\t"), (Listed{"SSID N/A", "Cafe: up", 1}));
    EXPECT_EQ(read(MODERN, "1\tCafe: up\tany\t"), (Listed{"Cafe: up", none, 1}));
    EXPECT_EQ(read(DEVICE, "1\tany\tany\t"), (Listed{"SSID N/A", none, 1}));
    EXPECT_EQ(read(MODERN, "1\tany\tany\t"), (Listed{"any", none, 1}));
    EXPECT_EQ(read(MODERN, "1\t\tany\t"), (Listed{"SSID N/A", none, 1})) << "without an SSID";
    EXPECT_EQ(read(MODERN, "1\thome\t02:00:00:00:00:01\t"),
              (Listed{"home", "02:00:00:00:00:01", 1}));
    EXPECT_EQ(read(DEVICE, "256\thome\tany\t"), (Listed{"home", none, 0}));
    EXPECT_EQ(read(MODERN, "256\thome\tany\t").id, -1);
    EXPECT_EQ(read(MODERN, "no line").id, -1);
    EXPECT_EQ(read(MODERN, "").id, -1);
}

// PROFILE-3
TEST(ReplyRules, FlagsOfTheList) {
    const char* const named = "1\t[DISABLED]\tany\t[CURRENT]";
    EXPECT_EQ(under(DEVICE, [&] { return listFlagIn(named); }), ListFlag::DISABLED);
    EXPECT_EQ(under(MODERN, [&] { return listFlagIn(named); }), ListFlag::CURRENT);
    EXPECT_EQ(under(MODERN, [&] { return listFlagIn("1\t[CURRENT]\tany\t"); }), ListFlag::NONE);
    EXPECT_EQ(under(MODERN, [&] { return listFlagIn("1\thome\tany\t[TEMP-DISABLED][DISABLED]"); }),
              ListFlag::DISABLED);
}

// PROFILE-5
TEST(ReplyRules, TextOfAnSsid) {
    const auto device = [](const char* text) {
        return under(DEVICE, [&] { return ssidInMemory(text); });
    };
    const auto modern = [](const char* text) {
        return under(MODERN, [&] { return ssidInMemory(text); });
    };
    EXPECT_EQ(device("\\xc3\\xa9"), "\\xc3\\xa9");
    EXPECT_EQ(modern("caf\\xc3\\xa9"), "caf\xc3\xa9");
    EXPECT_EQ(modern("\\\"\\\\\\e\\n\\r\\t"), "\"\\\033\n\r\t");
    EXPECT_EQ(modern("\\xFF\\x7f."), "\xff\x7f.");
    EXPECT_EQ(modern("a\\x00b"), "a\\x00b") << "a text ends at a zero byte";
    for (const char* noEscape : {"\\", "a\\", "\\q", "\\x", "\\xg0", "\\x1", "\\x1g"})
        EXPECT_EQ(modern(noEscape), noEscape);
}

// PROFILE-5
TEST(ReplyRules, TextOfAnSsidIsThatOfEveryByte) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string ssid = "a" + std::string(1, static_cast<char>(byte)) + "1";
        EXPECT_EQ(under(MODERN, [&] { return ssidInMemory(printedSsid(ssid)); }), ssid) << byte;
    }
}

// PROFILE-5
TEST(ReplyRules, SsidForTheSupplicant) {
    const auto sent = [](Profile profile, const char* ssid) {
        return under(profile, [&] { return quotedFor("ssid", ssid); });
    };
    const auto created = [](Profile profile, const char* ssid) {
        return under(profile, [&] { return quotedSsid(ssid); });
    };
    EXPECT_EQ(sent(DEVICE, "caf\xc3\xa9"), "\"caf\xc3\xa9\"");
    EXPECT_EQ(sent(MODERN, "caf\xc3\xa9"), "636166c3a9");
    EXPECT_EQ(sent(DEVICE, "\"home\""), "\"home\"") << "taken as quoted";
    EXPECT_EQ(sent(MODERN, "\"home\""), "22686f6d6522");
    EXPECT_EQ(sent(MODERN, " leading blank"), "\" leading blank\"");
    EXPECT_EQ(sent(MODERN, "a\\b"), "615c62");
    EXPECT_EQ(sent(MODERN, "NULL"), "\"NULL\"");
    EXPECT_EQ(created(DEVICE, "\n"), "\"\n\"");
    EXPECT_EQ(created(MODERN, "\n"), "0a");
    EXPECT_EQ(created(MODERN, "-guest"), "\"-guest\"");
}

// PROFILE-6
TEST(ReplyRules, LinesOfTheStatus) {
    const auto kind = [](Profile profile, const char* line) {
        return under(profile, [&] { return readStatusLine(line, StatusReader::LOAD).kind; });
    };
    EXPECT_EQ(kind(DEVICE, "ssid=my id=1"), StatusKind::SSID);
    EXPECT_EQ(kind(DEVICE, "ssid=bssid=x"), StatusKind::OTHER);
    EXPECT_EQ(kind(MODERN, "ssid=bssid=x"), StatusKind::SSID);
    EXPECT_EQ(kind(DEVICE, "p2p_wpa_state=COMPLETED"), StatusKind::STATE);
    EXPECT_EQ(kind(MODERN, "p2p_wpa_state=COMPLETED"), StatusKind::OTHER);
    EXPECT_EQ(kind(MODERN, "wpa_state=COMPLETED"), StatusKind::STATE);
    EXPECT_EQ(kind(MODERN, "bssid=02:00:00:00:00:01"), StatusKind::OTHER);
}

// PROFILE-8
TEST(ReplyRules, StrengthOfASignal) {
    const auto strength = [](Profile profile, const char* signal) {
        return under(profile, [&] { return strengthOf(signal); });
    };
    EXPECT_EQ(strength(DEVICE, "-90"), 100U);
    EXPECT_EQ(strength(DEVICE, "185"), 50U);
    struct {
        const char* dbm;
        unsigned int percent;
    } const signals[] = {{"-30", 100}, {"-50", 100}, {"-51", 98}, {"-75", 50},
                         {"-99", 2},   {"-100", 0},  {"-120", 0}, {"0", 100}};
    for (const auto& signal : signals)
        EXPECT_EQ(strength(MODERN, signal.dbm), signal.percent) << signal.dbm;
}

// PROFILE-9
TEST(ReplyRules, ChannelOfAFrequency) {
    const auto channel = [](Profile profile, const char* frequency) {
        return under(profile, [&] { return channelAt(frequency); });
    };
    EXPECT_EQ(channel(DEVICE, "5180"), 6U);
    EXPECT_EQ(channel(DEVICE, "2472"), 6U);
    struct {
        const char* megahertz;
        unsigned int channel;
    } const frequencies[] = {
        {"2412", 1},   {"2462", 11},  {"2472", 13}, {"2484", 14}, {"5180", 36}, {"5500", 100},
        {"5825", 165}, {"5885", 177}, {"5935", 2},  {"5955", 1},  {"6435", 97}, {"7115", 233},
        {"2400", 0},   {"2413", 0},   {"5900", 0},  {"7120", 0},  {"900", 0},   {"", 0}};
    for (const auto& frequency : frequencies)
        EXPECT_EQ(channel(MODERN, frequency.megahertz), frequency.channel) << frequency.megahertz;
}

// PROFILE-10
TEST(ReplyRules, WordsOfTheKeyManagement) {
    const auto number = [](Profile profile, const char* words) {
        return under(profile, [&] { return keyManagementIn(words); });
    };
    EXPECT_EQ(number(DEVICE, "WPA-PSK SAE"), KEY_MGMT_WPA_PSK + 0U);
    EXPECT_EQ(number(MODERN, "WPA-PSK SAE"), KEY_MGMT_WPA_PSK | KEY_MGMT_SAE);
    EXPECT_EQ(number(DEVICE, "WPA-PSK-SHA256"), KEY_MGMT_WPA_PSK + 0U);
    for (const auto* words : {&test::fieldWords(), &test::todaysWords()}) {
        for (const test::WordRow& row : words->at(Field::KEY_MANAGEMENT))
            EXPECT_EQ(number(MODERN, row.word), row.number) << row.word;
    }
    EXPECT_EQ(number(MODERN, "DPP"), 0U);
}

// PROFILE-10
TEST(ReplyRules, WordsOfTheCiphersAndMethods) {
    const auto pairwise = [] { return pairwiseCiphersIn("CCMP GCMP-256"); };
    EXPECT_EQ(under(DEVICE, pairwise), 0x4U);
    EXPECT_EQ(under(MODERN, pairwise), 0x44U);
    EXPECT_EQ(under(MODERN, [] { return groupCiphersIn("GCMP CCMP-256 WEP40"); }), 0xb0U);
    EXPECT_EQ(under(MODERN, [] { return groupCiphersIn("GCMP-256"); }), 0x40U);
    const auto methods = [] { return eapModeIn("PEAP TTLS"); };
    EXPECT_EQ(under(DEVICE, methods), EAP_TTLS + 0U);
    EXPECT_EQ(under(MODERN, methods), EAP_TTLS | EAP_PEAP);
}

// PROFILE-10
TEST(ReplyRules, WordsOfTheDump) {
    EXPECT_EQ(under(DEVICE, [] { return keyManagementWords(0x62); }), " WPA_PSK");
    EXPECT_EQ(under(MODERN, [] { return keyManagementWords(0x62); }), " WPA_PSK SAE OWE");
    EXPECT_EQ(under(DEVICE, [] { return pairwiseWords(0x44); }), " CCMP");
    EXPECT_EQ(under(MODERN, [] { return pairwiseWords(0x44); }), " CCMP GCMP-256");
}

// PROFILE-10
TEST(ReplyRules, TypesOfSecurity) {
    const auto type = [](Profile profile, unsigned int methods, unsigned int protocols) {
        return under(profile, [&]() -> std::string {
            WifiNetwork network;
            network.setKeyManagement(methods);
            network.setProtocol(protocols);
            const SecurityType* const found = securityTypeOf(network);
            return found ? found->name : "";
        });
    };
    struct {
        unsigned int methods;
        const char* type;
    } const types[] = {
        {KEY_MGMT_SAE, "wpa3_psk"},
        {KEY_MGMT_FT_SAE, "wpa3_psk"},
        {KEY_MGMT_SAE | KEY_MGMT_WPA_PSK, "wpa2_wpa3_psk"},
        {KEY_MGMT_OWE, "owe"},
        {KEY_MGMT_SUITE_B_192, "wpa3_192"},
        {KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_PSK_SHA256, "wpa2_psk"},
        {KEY_MGMT_WPA_EAP | KEY_MGMT_FT_EAP, "wpa2"},
    };
    for (const auto& each : types) {
        EXPECT_EQ(type(MODERN, each.methods, PROTOCOL_RSN), each.type) << each.methods;
        EXPECT_EQ(type(MODERN, each.methods, PROTOCOL_WPA | PROTOCOL_RSN), each.type);
        EXPECT_EQ(type(DEVICE, each.methods, PROTOCOL_RSN), "") << each.methods;
    }
    EXPECT_EQ(type(MODERN, KEY_MGMT_WPA_PSK, PROTOCOL_RSN), "wpa2_psk");
    EXPECT_EQ(type(DEVICE, KEY_MGMT_WPA_PSK, PROTOCOL_RSN), "wpa2_psk");
}

// PROFILE-16
TEST(ReplyRules, NamesOfInterfaces) {
    const auto option = [](Profile profile, const char* iface) {
        return under(profile, [&] { return std::string(InterfaceOption(iface).text()); });
    };
    EXPECT_EQ(option(DEVICE, "wlx0123456789"), "-iwlx0123456789") << "13 characters";
    EXPECT_EQ(option(DEVICE, "wlx01234567890"), "");
    EXPECT_EQ(option(MODERN, "wlx0123456789ab"), "-iwlx0123456789ab") << "15 characters";
    EXPECT_EQ(option(MODERN, "wlx0123456789abc"), "");
    EXPECT_EQ(option(MODERN, nullptr), "");
}

} // namespace
