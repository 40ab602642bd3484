#include "commands/LinkReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace cli;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

Link wholeLink() {
    Link link;
    link.bssid = "02:00:00:00:01:00";
    link.frequency = 5180;
    link.signal = -61;
    link.speed = 866;
    link.keyManagement = "SAE";
    link.pairwiseCipher = "CCMP";
    link.groupCipher = "TKIP";
    link.pmf = "required";
    link.ipv4 = "192.0.2.7";
    link.ipv6 = "2001:db8::7";
    link.connectedSeconds = 200;
    return link;
}

std::string textOf(const Rows& rows, const std::string& label) {
    for (const auto& [name, text] : rows) {
        if (name == label)
            return text;
    }
    return "";
}

TEST(TheReportOfALink, HasARowForEachValue) {
    EXPECT_THAT(rowsOf(wholeLink(), true),
                ElementsAre(Pair("Access point", "02:00:00:00:01:00"),
                            Pair("Channel", "36 (5 GHz, 5180 MHz)"),
                            Pair("Signal", "▂▄▆█ 78% (-61 dBm)"), Pair("Link speed", "866 Mbit/s"),
                            Pair("Key management", "SAE"), Pair("Ciphers", "CCMP (group TKIP)"),
                            Pair("PMF", "required"), Pair("IPv4 address", "192.0.2.7"),
                            Pair("IPv6 address", "2001:db8::7"),
                            Pair("Connected for", "3 min 20 s")));
}

TEST(TheReportOfALink, HasNoRowForWhatIsNotReported) {
    EXPECT_THAT(rowsOf(Link(), true), IsEmpty());
}

TEST(TheReportOfALink, HasBarsThatTheTerminalCanShow) {
    EXPECT_EQ(textOf(rowsOf(wholeLink(), false), "Signal"), "#### 78% (-61 dBm)");
}

TEST(TheReportOfALink, HasEqualCiphersOnce) {
    Link link = wholeLink();
    link.groupCipher = "CCMP";
    EXPECT_EQ(textOf(rowsOf(link, false), "Ciphers"), "CCMP");
}

TEST(TheReportOfALink, HasAFrequencyOutsideOfTheBands) {
    Link link = wholeLink();
    link.frequency = 60480;
    EXPECT_EQ(textOf(rowsOf(link, false), "Channel"), "unknown (60480 MHz)");
}

TEST(TheReportOfALink, HasNothingThatControlsTheTerminal) {
    Link link;
    link.keyManagement = "\033[2J";
    EXPECT_THAT(rowsOf(link, true), ElementsAre(Pair("Key management", "\\x1b[2J")));
}

TEST(TheReportOfALink, IsNothingWithoutAConnection) {
    EXPECT_EQ(valueOf(LinkState()), Value());
}

TEST(TheReportOfALink, HasNullForWhatIsNotReported) {
    LinkState state;
    state.link = Link();
    const Value value = valueOf(state);
    const Record& record = std::get<Record>(value);
    EXPECT_EQ(record.size(), 15u);
    for (const auto& [name, member] : record)
        EXPECT_EQ(member, Value()) << name;
}

TEST(TheReportOfALink, HasAMemberForEachValue) {
    LinkState state;
    state.ssid = "café";
    state.link = wholeLink();
    const Value value = valueOf(state);
    const Record wanted = {{"ssid", "café"},         {"bssid", "02:00:00:00:01:00"},
                           {"frequency", 5180},      {"channel", 36},
                           {"band", "5 GHz"},        {"signal", -61},
                           {"percent", 78},          {"speed", 866},
                           {"key_mgmt", "SAE"},      {"pairwise", "CCMP"},
                           {"group", "TKIP"},        {"pmf", "required"},
                           {"ipv4", "192.0.2.7"},    {"ipv6", "2001:db8::7"},
                           {"connectedSeconds", 200}};
    EXPECT_EQ(std::get<Record>(value), wanted);
}

TEST(ADuration, IsShownInItsTwoLargestUnits) {
    struct {
        int seconds;
        const char* text;
    } const rows[] = {{0, "0 s"},
                      {1, "1 s"},
                      {59, "59 s"},
                      {60, "1 min"},
                      {61, "1 min 1 s"},
                      {3'599, "59 min 59 s"},
                      {3'600, "1 h"},
                      {3'659, "1 h"},
                      {3'660, "1 h 1 min"},
                      {86'399, "23 h 59 min"},
                      {86'400, "1 d"},
                      {90'000, "1 d 1 h"},
                      {2'147'483'647, "24855 d 3 h"}};
    for (const auto& row : rows)
        EXPECT_EQ(durationText(row.seconds), row.text) << row.seconds;
}

} // namespace
