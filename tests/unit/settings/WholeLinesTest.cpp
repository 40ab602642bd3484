#include "settings/replies/WholeLines.h"

#include "settings/replies/PrintedSsid.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace platwifi;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr std::size_t PIECE = 127;

void addPiece(ReplyLines& reply, const std::string& piece) {
    char* const copy = new char[piece.size() + 1];
    std::memcpy(copy, piece.c_str(), piece.size() + 1);
    reply.data()[reply.count++] = copy;
}

using Join = Lines (*)(const ReplyLines&);

// The lines as the queries hand them out, and joined again.
Lines joined(Join join, const Lines& lines) {
    ReplyLines reply(255);
    for (const std::string& line : lines)
        for (std::size_t at = 0; at < line.size(); at += PIECE)
            addPiece(reply, line.substr(at, PIECE));
    return join(reply);
}

void expectWhole(Join join, const Lines& lines) {
    ASSERT_EQ(joined(join, lines), lines);
}

// A line of the list; `rest` is what stands behind the SSID.
std::string line(const std::string& id, const std::string& ssid, const std::string& rest) {
    return id + "\t" + ssid + "\t" + rest;
}

// Every length that a line can have, and more, with every column and every escape cut somewhere.
// LOAD-2
TEST(WholeLines, OfAListAreThoseThatTheClientPrinted) {
    const std::string flags[] = {"", "[CURRENT]", "[DISABLED]", "[TEMP-DISABLED][P2P-PERSISTENT]"};
    const std::string bssids[] = {"any", "02:00:00:00:01:00", "12:34:56:78:90:12"};
    for (std::size_t length = 90; length <= 256; ++length)
        for (const char* const ending : {"a", "0", "12", "\\x90", "\\xd0\\x9f", "\\\\", " 7"})
            for (const std::string& bssid : bssids)
                for (const std::string& flag : flags) {
                    const std::string ssid = std::string(length, 'x') + ending;
                    const std::string rest = bssid + "\t" + flag;
                    ASSERT_NO_FATAL_FAILURE(expectWhole(
                        wholeListLines, {line("9", ssid, rest), line("10", "x", "any\t"),
                                         line("11", ssid, rest), line("12", ssid, rest)}));
                }
}

TEST(WholeLines, OfAListHaveAnyNumberOfPieces) {
    for (const std::size_t length : {126U, 127U, 128U, 253U, 254U, 255U, 381U, 382U}) {
        SCOPED_TRACE(length);
        const std::string rest = "\tany\t[CURRENT]";
        const std::string whole = "0\t" + std::string(length - 2 - rest.size(), 'x') + rest;
        ASSERT_EQ(whole.size(), length);
        expectWhole(wholeListLines, {whole, "1\twork\tany\t", whole});
    }
}

// Some clients print no column for flags.
TEST(WholeLines, OfAListMayEndBehindTheBssid) {
    for (const char* const bssid : {"any", "02:00:00:00:01:00"}) {
        const std::string start = "0\t" + std::string(PIECE - 3 - std::strlen(bssid), 'x') + "\t";
        ASSERT_EQ((start + bssid).size(), PIECE);
        for (const char* const flags : {"", "\t[CURRENT]"})
            expectWhole(wholeListLines, {start + bssid + flags, "1\twork\tany"});
    }
}

TEST(WholeLines, AreEndedByAPieceThatIsNotFull) {
    const std::string half(PIECE - 1, 'x');
    for (const Join join : {wholeListLines, wholeScanLines, wholeStatusLines})
        expectWhole(join, {half, "y", half});
}

TEST(WholeLines, SkipNullEntries) {
    ReplyLines reply(3);
    addPiece(reply, std::string(PIECE, 'x'));
    ++reply.count;
    addPiece(reply, "y");
    EXPECT_THAT(wholeListLines(reply), ElementsAre(std::string(PIECE, 'x') + "y"));
    EXPECT_THAT(wholeListLines(ReplyLines(3)), IsEmpty());
}

// LOAD-2
TEST(WholeLines, OfAScanBeginWithABssid) {
    const std::string start = "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\t";
    const std::string other = "aa:BB:00:00:01:0f\t2412\t-30\t\tx";
    for (std::size_t length = 1; length <= 400; ++length) {
        ASSERT_NO_FATAL_FAILURE(
            expectWhole(wholeScanLines, {start + std::string(length, 'x'), other,
                                         start + std::string(length, 'y')}));
    }
    for (const char* const rest :
         {"02:00:00:00:01:00", "02:00:00:00:01:0\tx", "02:00:00:00:01:00 x", "02:00:00:00:01:0g\tx",
          "02-00-00-00-01-00\tx", "x2:00:00:00:01:00\tx", "lab"}) {
        const std::string full = start + std::string(PIECE - start.size(), 'x');
        EXPECT_THAT(joined(wholeScanLines, {full + rest}), SizeIs(1)) << rest;
    }
}

// LOAD-2
TEST(WholeLines, OfAStatusBeginWithAKey) {
    // 32 bytes: up to 128 characters, with each escape cut somewhere.
    for (std::size_t plain = 0; plain <= 32; ++plain)
        for (const char* const byte : {"\xd0", "\xdd", "\xff", "\x01"})
            for (const char* const ending : {"", "=", "a=", "\\"}) {
                std::string ssid = std::string(plain, 'x');
                while (ssid.size() + std::strlen(ending) < 32)
                    ssid += byte;
                ssid += ending;
                ASSERT_NO_FATAL_FAILURE(
                    expectWhole(wholeStatusLines, {"bssid=02:00:00:00:01:00", "freq=2412",
                                                   "ssid=" + printedSsid(ssid), "id=0",
                                                   "mode=station", "wpa_state=COMPLETED"}));
            }
}

TEST(WholeLines, OfAStatusMayBeJustAsLongAsAPiece) {
    const std::string full = "ssid=" + std::string(PIECE - 5, 'x');
    for (const char* const next : {"id=0", "mode=station", "EAP state=IDLE", "wpa_state=COMPLETED"})
        expectWhole(wholeStatusLines, {full, next});
}

class Queries : public testing::Test {
protected:
    using Query = bool (*)(WifiUtil&, const char*, Lines&);

    void answer(const char* command, const std::string& header, const Lines& printed) {
        std::string text = header;
        for (const std::string& line : printed)
            text += line + "\n";
        standIn.on({"-iwlan0", command}).prints(text);
    }

    void expect(Query query, const Lines& expected) {
        EXPECT_TRUE(query(util, "wlan0", lines));
        EXPECT_THAT(lines, ElementsAreArray(expected));
    }

    test::StandIn standIn;
    WifiUtil util;
    Lines lines;
};

TEST_F(Queries, GiveWholeLines) {
    const std::string ssid = printedSsid(std::string(32, '\xd0'));
    const Lines list = {line("0", ssid, "any\t[CURRENT]"), line("1", "x", "any\t")};
    const Lines scan = {"02:00:00:00:01:00\t2412\t-30\t[ESS]\t" + ssid,
                        "02:00:00:00:01:01\t2412\t-30\t\tx"};
    const Lines status = {"ssid=" + ssid, "id=0", "wpa_state=COMPLETED"};
    answer("list_networks", "header\n", list);
    answer("scan_results", "header\n", scan);
    answer("status", "", status);
    expect(queryList, list);
    expect(queryScan, scan);
    expect(queryStatus, status);
}

// Lines count, not pieces.
TEST_F(Queries, TakeThe32LinesOfAScanAndThe16OfAStatusOfAnyLength) {
    const std::string scanLine = "02:00:00:00:01:00\t2412\t-30\t[ESS]\t" + std::string(128, 'x');
    const std::string statusLine = "ssid=" + std::string(128, 'x');
    answer("scan_results", "header\n", Lines(40, scanLine));
    answer("status", "", Lines(20, statusLine));
    expect(queryScan, Lines(32, scanLine));
    expect(queryStatus, Lines(16, statusLine));
}

TEST_F(Queries, GiveMoreLinesOfTheListThanALoadTakes) {
    Lines list;
    for (int i = 0; i < 255; ++i)
        list.push_back(line(std::to_string(i), "x", "any\t"));
    answer("list_networks", "header\n", list);
    expect(queryList, list);
}

TEST_F(Queries, FailWhenTheSupplicantDoesNotAnswer) {
    standIn.on({"*"}).exits(255);
    EXPECT_FALSE(queryList(util, "wlan0", lines));
    EXPECT_FALSE(queryScan(util, "wlan0", lines));
    EXPECT_FALSE(queryStatus(util, "wlan0", lines));
    EXPECT_FALSE(queryList(util, nullptr, lines));
    EXPECT_THAT(lines, IsEmpty());
}

} // namespace
