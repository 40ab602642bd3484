#include "settings/replies/WholeLines.h"

#include "settings/replies/PrintedSsid.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using platwifi::Lines;
using platwifi::ReplyLines;
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

Lines joinedList(const Lines& lines) {
    return joined(platwifi::wholeListLines, lines);
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
                    const Lines lines = {line("9", ssid, bssid + "\t" + flag),
                                         line("10", "x", "any\t"),
                                         line("11", ssid, bssid + "\t" + flag),
                                         line("12", ssid, bssid + "\t" + flag)};
                    ASSERT_EQ(joinedList(lines), lines);
                }
}

TEST(WholeLines, OfAListHaveAnyNumberOfPieces) {
    for (const std::size_t length : {126U, 127U, 128U, 253U, 254U, 255U, 381U, 382U}) {
        SCOPED_TRACE(length);
        const std::string rest = "\tany\t[CURRENT]";
        const std::string whole = "0\t" + std::string(length - 2 - rest.size(), 'x') + rest;
        ASSERT_EQ(whole.size(), length);
        const Lines lines = {whole, "1\twork\tany\t", whole};
        EXPECT_EQ(joinedList(lines), lines);
    }
}

// Some clients print no column for flags.
TEST(WholeLines, OfAListMayEndBehindTheBssid) {
    for (const char* const bssid : {"any", "02:00:00:00:01:00"}) {
        const std::string start = "0\t" + std::string(PIECE - 3 - std::strlen(bssid), 'x') + "\t";
        ASSERT_EQ((start + bssid).size(), PIECE);
        const Lines lines = {start + bssid, "1\twork\tany"};
        EXPECT_EQ(joinedList(lines), lines);
        const Lines longer = {start + bssid + "\t[CURRENT]", "1\twork\tany"};
        EXPECT_EQ(joinedList(longer), longer);
    }
}

TEST(WholeLines, AreEndedByAPieceThatIsNotFull) {
    const std::string half(PIECE - 1, 'x');
    for (const Join join :
         {platwifi::wholeListLines, platwifi::wholeScanLines, platwifi::wholeStatusLines})
        EXPECT_THAT(joined(join, {half, "y", half}), ElementsAre(half, "y", half));
}

TEST(WholeLines, PassOverNullEntries) {
    ReplyLines reply(3);
    addPiece(reply, std::string(PIECE, 'x'));
    ++reply.count;
    addPiece(reply, "y");
    EXPECT_THAT(platwifi::wholeListLines(reply), ElementsAre(std::string(PIECE, 'x') + "y"));
    EXPECT_THAT(platwifi::wholeListLines(ReplyLines(3)), IsEmpty());
}

// LOAD-2
TEST(WholeLines, OfAScanBeginWithABssid) {
    const std::string start = "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\t";
    const std::string other = "aa:BB:00:00:01:0f\t2412\t-30\t\tx";
    for (std::size_t length = 1; length <= 400; ++length) {
        const Lines lines = {start + std::string(length, 'x'), other,
                             start + std::string(length, 'y')};
        ASSERT_EQ(joined(platwifi::wholeScanLines, lines), lines) << length;
    }
    for (const char* const rest :
         {"02:00:00:00:01:00", "02:00:00:00:01:0\tx", "02:00:00:00:01:00 x", "02:00:00:00:01:0g\tx",
          "02-00-00-00-01-00\tx", "x2:00:00:00:01:00\tx", "lab"}) {
        const std::string full = start + std::string(PIECE - start.size(), 'x');
        EXPECT_THAT(joined(platwifi::wholeScanLines, {full + rest}), SizeIs(1)) << rest;
    }
}

// LOAD-2
TEST(WholeLines, OfAStatusBeginWithAKey) {
    // 32 bytes: up to 128 characters, and whatever escape is cut.
    for (std::size_t plain = 0; plain <= 32; ++plain)
        for (const char* const byte : {"\xd0", "\xdd", "\xff", "\x01"})
            for (const char* const ending : {"", "=", "a=", "\\"}) {
                std::string ssid = std::string(plain, 'x');
                while (ssid.size() + std::strlen(ending) < 32)
                    ssid += byte;
                ssid += ending;
                const Lines lines = {"bssid=02:00:00:00:01:00",
                                     "freq=2412",
                                     "ssid=" + platwifi::printedSsid(ssid),
                                     "id=0",
                                     "mode=station",
                                     "wpa_state=COMPLETED"};
                ASSERT_EQ(joined(platwifi::wholeStatusLines, lines), lines);
            }
}

TEST(WholeLines, OfAStatusMayBeJustAsLongAsAPiece) {
    const std::string full = "ssid=" + std::string(PIECE - 5, 'x');
    for (const char* const next :
         {"id=0", "mode=station", "EAP state=IDLE", "wpa_state=COMPLETED"}) {
        const Lines lines = {full, next};
        EXPECT_EQ(joined(platwifi::wholeStatusLines, lines), lines);
    }
}

class Queries : public testing::Test {
protected:
    test::StandIn standIn;
    WifiUtil util;
    Lines lines;
};

std::string text(const Lines& lines) {
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    return all;
}

TEST_F(Queries, GiveWholeLines) {
    const std::string ssid = platwifi::printedSsid(std::string(32, '\xd0'));
    const Lines list = {line("0", ssid, "any\t[CURRENT]"), line("1", "x", "any\t")};
    const Lines scan = {"02:00:00:00:01:00\t2412\t-30\t[ESS]\t" + ssid,
                        "02:00:00:00:01:01\t2412\t-30\t\tx"};
    const Lines status = {"ssid=" + ssid, "id=0", "wpa_state=COMPLETED"};
    standIn.on({"-iwlan0", "list_networks"}).prints("header\n" + text(list));
    standIn.on({"-iwlan0", "scan_results"}).prints("header\n" + text(scan));
    standIn.on({"-iwlan0", "status"}).prints(text(status));
    EXPECT_TRUE(platwifi::queryList(util, "wlan0", lines));
    EXPECT_EQ(lines, list);
    EXPECT_TRUE(platwifi::queryScan(util, "wlan0", lines));
    EXPECT_EQ(lines, scan);
    EXPECT_TRUE(platwifi::queryStatus(util, "wlan0", lines));
    EXPECT_EQ(lines, status);
}

// Lines count, not pieces.
TEST_F(Queries, TakeThe32LinesOfAScanAndThe16OfAStatusWhateverTheirLength) {
    Lines scan(40, "02:00:00:00:01:00\t2412\t-30\t[ESS]\t" + std::string(128, 'x'));
    Lines status(20, "ssid=" + std::string(128, 'x'));
    standIn.on({"-iwlan0", "scan_results"}).prints("header\n" + text(scan));
    standIn.on({"-iwlan0", "status"}).prints(text(status));
    EXPECT_TRUE(platwifi::queryScan(util, "wlan0", lines));
    scan.resize(32);
    EXPECT_EQ(lines, scan);
    EXPECT_TRUE(platwifi::queryStatus(util, "wlan0", lines));
    status.resize(16);
    EXPECT_EQ(lines, status);
}

TEST_F(Queries, GiveMoreLinesOfTheListThanALoadTakes) {
    Lines list;
    for (int i = 0; i < 255; ++i)
        list.push_back(line(std::to_string(i), "x", "any\t"));
    standIn.on({"*"}).prints("header\n" + text(list));
    EXPECT_TRUE(platwifi::queryList(util, "wlan0", lines));
    EXPECT_THAT(lines, ElementsAreArray(list));
}

TEST_F(Queries, FailWhenTheSupplicantDoesNotAnswer) {
    standIn.on({"*"}).exits(255);
    EXPECT_FALSE(platwifi::queryList(util, "wlan0", lines));
    EXPECT_FALSE(platwifi::queryScan(util, "wlan0", lines));
    EXPECT_FALSE(platwifi::queryStatus(util, "wlan0", lines));
    EXPECT_FALSE(platwifi::queryList(util, nullptr, lines));
    EXPECT_THAT(lines, IsEmpty());
}

} // namespace
