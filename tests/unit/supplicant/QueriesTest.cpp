#include "ClientOperations.h"

#include "support/BlockedFile.h"
#include "support/Leftovers.h"
#include "support/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

using platwifi::ReplyLines;
using namespace test;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string ADAPTER_HEADER = "Selected interface 'wlan0'\nAvailable interfaces:\n";

using Lines = std::vector<std::string>;

class ListQuery : public testing::TestWithParam<Query> {
protected:
    ~ListQuery() override { WifiUtil::unload(); }

    static constexpr bool STAMPING = true;

    // The instance, of a client that stamps its replies, or does not.
    WifiUtil& util(bool stamping = !STAMPING) {
        standIn.on({"interface"})
            .prints(ADAPTER_HEADER + (stamping ? STAMP : "") + "wlan0\n")
            .then()
            .prints("");
        WifiUtil* const instance = WifiUtil::getInstance();
        standIn.reset();
        return *instance;
    }

    void answer(const std::string& entries) {
        std::string text;
        for (int i = 0; i < GetParam().headerLines; ++i)
            text += "header " + std::to_string(i) + "\n";
        standIn.on(GetParam().call).prints(text + entries);
    }

    static bool run(WifiUtil& util, ReplyLines& lines, unsigned char max = 16) {
        return GetParam().run(util, "wlan0", lines.data(), max, &lines.count);
    }

    // What a query returns that succeeds.
    Lines linesOf(const std::string& entries, unsigned char max = 16, bool stamping = !STAMPING) {
        WifiUtil& instance = util(stamping);
        answer(entries);
        const Leftovers before = Leftovers::now();
        ReplyLines lines(max);
        EXPECT_TRUE(run(instance, lines, max));
        EXPECT_TRUE(Leftovers::now() == before);
        return toStrings(lines);
    }

    StandIn standIn;
};

TEST_P(ListQuery, RunsItsOneCommandAndReturnsTheLines) {
    EXPECT_THAT(linesOf("first\tx\nsecond\n\nthird, the last\n"),
                ElementsAre("first\tx", "second", "third, the last"));
    Arguments call{CLIENT};
    call.insert(call.end(), GetParam().call.begin(), GetParam().call.end());
    EXPECT_THAT(standIn.calls(), ElementsAre(call));
}

TEST_P(ListQuery, SkipsItsHeaderWithoutReadingIt) {
    WifiUtil& instance = util();
    const std::string headers[] = {"", "FAIL\n", "FAIL\n\n"};
    standIn.on(GetParam().call).prints(headers[GetParam().headerLines] + "entry\n");
    ReplyLines lines(16);
    EXPECT_TRUE(run(instance, lines));
    EXPECT_THAT(toStrings(lines), ElementsAre("entry"));
}

// REPLY-7
TEST_P(ListQuery, ReturnsAFailureMessageAsAnEntry) {
    EXPECT_THAT(linesOf("FAIL\n"), ElementsAre("FAIL"));
}

TEST_P(ListQuery, SucceedsWithoutEntries) {
    EXPECT_THAT(linesOf(""), IsEmpty());
    standIn.reset();
    standIn.on(GetParam().call).prints("");
    ReplyLines lines(16);
    EXPECT_TRUE(run(*WifiUtil::getInstance(), lines)) << "not even a header";
    EXPECT_EQ(lines.count, 0);
}

TEST_P(ListQuery, StopsSilentlyWhenTheArrayIsFull) {
    EXPECT_THAT(linesOf("1\n2\n3\n4\n", 3), ElementsAre("1", "2", "3"));
    ReplyLines none(1);
    EXPECT_TRUE(run(*WifiUtil::getInstance(), none, 0));
    EXPECT_EQ(none.count, 0);
    EXPECT_EQ(none.data()[0], nullptr);
}

// REPLY-8
TEST_P(ListQuery, CutsLongLinesIntoPieces) {
    const std::string text127(127, 'a');
    const std::string text128(128, 'b');
    const std::string text300(300, 'c');
    // The piece that ends a 127-character line is only its line feed: an empty line, skipped.
    EXPECT_THAT(linesOf(text127 + "\n" + text128 + "\n" + text300 + "\n"),
                ElementsAre(text127, text128.substr(0, 127), "b", text300.substr(0, 127),
                            text300.substr(0, 127), text300.substr(0, 46)));
}

TEST_P(ListQuery, ReadsALastLineWithoutLineFeed) {
    EXPECT_THAT(linesOf("one\ntwo"), ElementsAre("one", "two"));
}

TEST_P(ListQuery, ReadsNoMoreOfAMegabyteThanItHasRoomFor) {
    std::string entries;
    while (entries.size() < (1U << 20U))
        entries += "0123456789012345678901234567890123456789\n";
    EXPECT_EQ(linesOf(entries, 255).size(), 255U);
}

TEST_P(ListQuery, TakesBinaryReplies) {
    std::string entries;
    for (int i = 0; i < 3000; ++i)
        entries += static_cast<char>(i * 7 % 251);
    linesOf(entries, 255);
}

TEST_P(ListQuery, FailsWithTheClient) {
    WifiUtil& instance = util();
    standIn.on(GetParam().call).prints("header\nheader\nentry\n").exits(255);
    ReplyLines lines(16);
    lines.count = 5;
    EXPECT_FALSE(run(instance, lines));
    EXPECT_EQ(lines.count, GetParam().resetsCount ? 0 : 5);
    EXPECT_THAT(std::vector<char*>(lines.data(), lines.data() + 16), Each(nullptr));
    EXPECT_THAT(resultFiles(), IsEmpty());
}

TEST_P(ListQuery, FailsWhenTheResultFileWasRemoved) {
    WifiUtil& instance = util();
    const std::string client = standIn.folder() + "/wpa_cli";
    std::filesystem::remove(client);
    std::ofstream(client) << "#!/bin/sh\nrm /tmp/*_result_*\n";
    std::filesystem::permissions(client, std::filesystem::perms::owner_all);
    ReplyLines lines(16);
    lines.count = 5;
    EXPECT_FALSE(run(instance, lines));
    EXPECT_EQ(lines.count, GetParam().resetsCount ? 0 : 5);
}

TEST_P(ListQuery, ResetsOrKeepsTheCount) {
    WifiUtil& instance = util();
    answer("entry\n");
    ReplyLines lines(16);
    lines.count = 3;
    EXPECT_TRUE(run(instance, lines));
    EXPECT_EQ(lines.count, GetParam().resetsCount ? 1 : 4);
    EXPECT_STREQ(lines.data()[GetParam().resetsCount ? 0 : 3], "entry");
    // The count of 3 that the test sets is not backed by entries.
    lines.count = GetParam().resetsCount ? 1 : 0;
}

// REPLY-11
TEST_P(ListQuery, RemovesTheStampFromItsFirstEntryAlone) {
    const std::string kept = GetParam().removesStamp ? "" : STAMP;
    EXPECT_THAT(
        linesOf("\n" + STAMP + "bssid=00:11:22:33:44:55\n" + STAMP + "second\n", 16, STAMPING),
        ElementsAre(kept + "bssid=00:11:22:33:44:55", STAMP + "second"));
}

TEST_P(ListQuery, KeepsAnEntryThatConsistsOfAStamp) {
    EXPECT_THAT(linesOf(STAMP + "\n" + STAMP + "second\n", 16, STAMPING),
                ElementsAre(GetParam().removesStamp ? "" : STAMP, STAMP + "second"));
}

TEST_P(ListQuery, KeepsAStampThatItDoesNotExpect) {
    EXPECT_THAT(linesOf(STAMP + "entry\n"), ElementsAre(STAMP + "entry"));
}

// The file is there, under its own name and in this thread's, while the client runs: a folder put
// in its place makes the command fail.
TEST_P(ListQuery, UsesItsOwnResultFile) {
    WifiUtil& instance = util();
    answer("entry\n");
    ReplyLines lines(16);
    {
        const BlockedFile blocked(resultPath(GetParam().resultPrefix));
        EXPECT_FALSE(run(instance, lines));
        EXPECT_THAT(standIn.calls(), IsEmpty());
    }
    EXPECT_TRUE(run(instance, lines));
}

INSTANTIATE_TEST_SUITE_P(Every, ListQuery, testing::ValuesIn(QUERIES),
                         [](const auto& test) { return std::string(test.param.name); });

class Adapters : public testing::Test {
protected:
    ~Adapters() override { WifiUtil::unload(); }
    StandIn standIn;
};

// REPLY-12
TEST_F(Adapters, AreAppendedWithTheirStampAfterAnEarlierEntry) {
    standIn.on({"interface"}).prints(ADAPTER_HEADER + STAMP + "wlan0\n");
    WifiUtil* const util = WifiUtil::getInstance();
    ReplyLines lines(2);
    lines.count = 1;
    EXPECT_TRUE(util->getWifiAdapters(lines.data(), 2, &lines.count));
    EXPECT_EQ(lines.count, 2);
    EXPECT_EQ(lines.data()[0], nullptr);
    EXPECT_EQ(lines.data()[1], STAMP + "wlan0");
    EXPECT_TRUE(util->getWifiAdapters(lines.data(), 2, &lines.count)) << "full already";
    EXPECT_EQ(lines.count, 2);
}

TEST_F(Adapters, AreNotAppendedToAnArrayThatIsMoreThanFull) {
    standIn.on({"interface"}).prints(ADAPTER_HEADER + "wlan0\n");
    ReplyLines lines(4);
    lines.count = 3;
    EXPECT_TRUE(WifiUtil::getInstance()->getWifiAdapters(lines.data(), 2, &lines.count));
    EXPECT_EQ(lines.count, 3);
}

class IsWifiEnabled : public testing::Test {
protected:
    StandIn standIn;
    WifiUtil util;
};

// RUNS-1
TEST_F(IsWifiEnabled, ChecksThePidFileWithoutAnInterface) {
    const std::string result = resultPath("/tmp/process_table_result_");
    std::ofstream(result) << "of another query";
    EXPECT_FALSE(util.isWifiEnabled(nullptr));
    mkdir("/var/run", 0755);
    std::ofstream("/var/run/wpa_supplicant.pid") << "1\n";
    EXPECT_TRUE(util.isWifiEnabled(nullptr));
    EXPECT_THAT(standIn.calls(), IsEmpty()) << "no child is run";
    EXPECT_THAT(resultFiles(), ElementsAre(result)) << "no file is removed";
    std::remove(result.c_str());
    std::remove("/var/run/wpa_supplicant.pid");
    EXPECT_FALSE(util.isWifiEnabled(nullptr));
}

// RUNS-1
TEST_F(IsWifiEnabled, SearchesTheProcessTableWithAnInterface) {
    standIn.on({"-iwlan0", "arg"})
        .prints("1 /sbin/init\n77 /sbin/wpa_supplicant -iwlan0\n78 sh\n")
        .then()
        .prints("1 /sbin/init\n78 sh\n")
        .then()
        .prints("")
        .then()
        .prints("77 wpa_supplicant\n")
        .exits(1);
    const Leftovers before = Leftovers::now();
    EXPECT_TRUE(util.isWifiEnabled("wlan0"));
    EXPECT_FALSE(util.isWifiEnabled("wlan0"));
    EXPECT_FALSE(util.isWifiEnabled("wlan0")) << "an empty table";
    EXPECT_FALSE(util.isWifiEnabled("wlan0")) << "the lister failed";
    EXPECT_EQ(standIn.calls()[0], (Arguments{"/proc/boot/pidin", "-iwlan0", "arg"}));
    EXPECT_TRUE(Leftovers::now() == before);
}

TEST_F(IsWifiEnabled, IgnoresThePidFileWithAnInterface) {
    std::ofstream("/var/run/wpa_supplicant.pid") << "1\n";
    standIn.on({"-iwlan0", "arg"}).prints("1 /sbin/init\n");
    EXPECT_FALSE(util.isWifiEnabled("wlan0"));
    std::remove("/var/run/wpa_supplicant.pid");
}

// RUNS-2
TEST_F(IsWifiEnabled, SearchesLinesInPiecesOf511Characters) {
    standIn.on({"-iwlan0", "arg"})
        .prints(std::string(497, 'x') + "wpa_supplicant\n")
        .then()
        .prints(std::string(498, 'x') + "wpa_supplicant\n");
    EXPECT_TRUE(util.isWifiEnabled("wlan0"));
    EXPECT_FALSE(util.isWifiEnabled("wlan0")) << "the name is cut in two";
}

TEST_F(IsWifiEnabled, AcceptsAnEmptyInterfaceName) {
    standIn.on({"-i", "arg"}).prints("77 wpa_supplicant\n");
    EXPECT_TRUE(util.isWifiEnabled(""));
}

TEST_F(IsWifiEnabled, UsesItsOwnResultFile) {
    standIn.on({"*"}).prints("77 wpa_supplicant\n");
    {
        const BlockedFile blocked(resultPath("/tmp/process_table_result_"));
        EXPECT_FALSE(util.isWifiEnabled("wlan0"));
        EXPECT_THAT(standIn.calls(), IsEmpty());
    }
    EXPECT_TRUE(util.isWifiEnabled("wlan0"));
}

using HashCaCertificates = IsWifiEnabled;

TEST_F(HashCaCertificates, SucceedsWithoutACommand) {
    EXPECT_TRUE(util.hashCACertificates());
    EXPECT_THAT(standIn.calls(), IsEmpty()) << "no command is needed";
}

} // namespace
