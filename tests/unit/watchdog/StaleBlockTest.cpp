// What a watchdog does with other objects that have the name of the block, and with processes that
// start at the same time.

#include "BlockView.h"
#include "Peer.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

using test::BLOCK_PATH;
using test::BlockView;
using test::Peer;

void put(const std::string& bytes) {
    std::ofstream(BLOCK_PATH, std::ios::binary) << bytes;
}

void putHole(std::size_t size) {
    put("");
    std::filesystem::resize_file(BLOCK_PATH, size);
}

std::string garbage(std::size_t size) {
    return std::string(size, '\x5a');
}

// A complete block with users, as another process may have left it.
std::string finishedBlock() {
    SharedSignalBlock block;
    std::memset(static_cast<void*>(&block), 0, sizeof(block));
    EXPECT_TRUE(SharedSignalBlock::setUp(&block));
    block.attachCount = 7;
    return {reinterpret_cast<const char*>(&block), sizeof(block)};
}

std::string blockWithoutMark() {
    std::string bytes = finishedBlock();
    bytes.replace(offsetof(SharedSignalBlock, refreshCondition), sizeof(platform::SharedCondition),
                  sizeof(platform::SharedCondition), '\0');
    return bytes;
}

std::string blockWithoutUsers() {
    std::string bytes = finishedBlock();
    bytes.replace(offsetof(SharedSignalBlock, attachCount), sizeof(std::uint32_t),
                  sizeof(std::uint32_t), '\0');
    return bytes;
}

// Initializes all at the same time, and returns how many of them created a block.
template <std::size_t COUNT>
int creatorsOf(Peer (&peers)[COUNT]) {
    for (Peer& peer : peers)
        peer.send("initialize");
    for (Peer& peer : peers)
        EXPECT_EQ(peer.answer(), "1");
    int creators = 0;
    for (Peer& peer : peers)
        creators += peer.ask("creator") == "1" ? 1 : 0;
    return creators;
}

struct Entry {
    const char* name;
    std::function<void()> put;
};

constexpr std::size_t SIZE = sizeof(SharedSignalBlock);

const Entry ENTRIES[] = {
    {"Empty", [] { put(""); }},
    {"HalfBuilt", [] { putHole(SIZE); }},
    {"ZeroFilled", [] { put(std::string(SIZE, '\0')); }},
    {"Garbage", [] { put(garbage(SIZE)); }},
    {"OfAnotherWordSize", [] { put(garbage(36)); }},
    {"TooShort", [] { put(finishedBlock().substr(0, SIZE - 1)); }},
    {"TooLong", [] { put(finishedBlock() + '\0'); }},
    {"WithoutMark", [] { put(blockWithoutMark()); }},
    {"WithoutUsers", [] { put(blockWithoutUsers()); }},
    {"Link",
     [] {
         std::ofstream("/dev/shm/elsewhere", std::ios::binary) << finishedBlock();
         EXPECT_EQ(symlink("elsewhere", BLOCK_PATH), 0);
     }},
    {"DanglingLink", [] { EXPECT_EQ(symlink("nowhere", BLOCK_PATH), 0); }},
    {"Pipe", [] { EXPECT_EQ(mkfifo(BLOCK_PATH, 0600), 0); }},
};

class StaleEntry : public testing::TestWithParam<Entry> {
protected:
    void SetUp() override { GetParam().put(); }
    void TearDown() override {
        std::filesystem::remove("/dev/shm/elsewhere");
        EXPECT_EQ(std::filesystem::is_empty("/dev/shm"), true) << "no file is left";
    }
};

// PEER-10
TEST_P(StaleEntry, IsReplacedByANewBlock) {
    WifiHostSettingsWatchdog watchdog;
    EXPECT_TRUE(watchdog.initialize());
    EXPECT_TRUE(watchdog.isCreator());
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

TEST_P(StaleEntry, IsReplacedOnceByProcessesThatStartTogether) {
    Peer peers[4];
    EXPECT_EQ(creatorsOf(peers), 1);
    EXPECT_EQ(BlockView().numbers(), "0 none 4");
}

INSTANTIATE_TEST_SUITE_P(Entries, StaleEntry, testing::ValuesIn(ENTRIES),
                         [](const auto& row) { return std::string(row.param.name); });

/// Gives a process of root the rights of an ordinary user during its lifetime.
class OrdinaryUser {
public:
    OrdinaryUser() : m_done(seteuid(65534) == 0) {}
    ~OrdinaryUser() {
        if (m_done) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    explicit operator bool() const { return m_done; }

private:
    bool m_done;
};

class Start : public testing::Test {
protected:
    void TearDown() override { std::filesystem::remove_all(BLOCK_PATH); }
};

TEST_F(Start, JoinsAFinishedBlock) {
    put(finishedBlock());
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    EXPECT_FALSE(watchdog.isCreator());
    EXPECT_EQ(BlockView().numbers(), "0 none 8");
}

// PEER-10
TEST_F(Start, ReplacesTheBlockOfAnotherUser) {
    put(finishedBlock());
    if (chown(BLOCK_PATH, 65534, 65534) != 0)
        GTEST_SKIP() << "only root can give a file away";
    const auto start = [] {
        for (int time = 0; time < 2; ++time) {
            WifiHostSettingsWatchdog watchdog;
            watchdog.initialize();
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(0),
                "^platwifi: the shared memory object /wifi_shmem of user 65534 is replaced;"
                "[^\n]*\n$");
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    EXPECT_TRUE(watchdog.isCreator());
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

TEST_F(Start, ReplacesABlockThatItMayRemoveButNotOpen) {
    const OrdinaryUser user;
    if (!user)
        GTEST_SKIP() << "only root can become another user";
    put(finishedBlock());
    chmod(BLOCK_PATH, 0);
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    EXPECT_TRUE(watchdog.isCreator());
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

// PEER-10
TEST_F(Start, RunsWithoutABlockThatItMayNeitherWriteNorRemove) {
    put(finishedBlock());
    {
        const OrdinaryUser user;
        if (!user)
            GTEST_SKIP() << "only root can become another user";
        const auto start = [] {
            WifiHostSettingsWatchdog watchdog;
            watchdog.initialize();
            std::_Exit(0);
        };
        EXPECT_EXIT(start(), testing::ExitedWithCode(0),
                    "^platwifi: the shared memory object /wifi_shmem cannot be used [^\n]*\n$");
        WifiHostSettingsWatchdog watchdog;
        EXPECT_TRUE(watchdog.initialize());
        EXPECT_FALSE(watchdog.isCreator());
        watchdog.sendRefreshSettingsSignal();
        EXPECT_EQ(watchdog.checkForRefreshSignal(100), 0);
    }
    EXPECT_EQ(BlockView().numbers(), "0 none 7") << "unchanged";
}

TEST_F(Start, ByManyProcessesAtOnceMakesOneBlock) {
    for (int round = 0; round < 3; ++round) {
        Peer peers[8];
        EXPECT_EQ(creatorsOf(peers), 1);
        EXPECT_EQ(BlockView().numbers(), "0 none 8");
    }
}

} // namespace
