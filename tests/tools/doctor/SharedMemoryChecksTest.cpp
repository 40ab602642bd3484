// The check of the shared memory: whether the library would use it, and which processes do.

#include "DoctorWorld.h"
#include "Findings.h"
#include "process/SharedBlock.h"
#include "watchdog/SharedSignalBlock.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using cli::BLOCK_PATH;
using test::isBad;
using test::isGood;
using test::isNote;
using testing::AllOf;
using testing::HasSubstr;

constexpr std::size_t SIZE = sizeof(SharedSignalBlock);
constexpr uid_t OTHER_ID = 65534;

void put(std::size_t size) {
    std::ofstream(BLOCK_PATH) << std::string(size, '\0');
}

class SharedMemoryChecks : public testing::Test {
protected:
    void TearDown() override { std::filesystem::remove_all(BLOCK_PATH); }
};

/// A process that has the block mapped for as long as the object lives.
class BlockUser {
public:
    enum class Where {
        HERE,
        OTHER_MOUNT ///< maps a block of its own, which has the same name in another mount namespace
    };

    explicit BlockUser(Where where = Where::HERE) {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        m_process = fork();
        if (m_process == 0)
            mapAndPause(where, ready[1]);
        close(ready[1]);
        char byte = 0;
        m_isMapped = read(ready[0], &byte, 1) == 1;
        close(ready[0]);
    }
    ~BlockUser() {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    BlockUser(const BlockUser&) = delete;
    BlockUser& operator=(const BlockUser&) = delete;

    bool isMapped() const { return m_isMapped; }
    std::string id() const { return std::to_string(m_process); }

private:
    [[noreturn]] static void mapAndPause(Where where, int ready) {
        if (where == Where::OTHER_MOUNT)
            mountOtherBlock();
        const int file = open(BLOCK_PATH, O_RDWR | O_CLOEXEC);
        if (mmap(nullptr, SIZE, PROT_READ, MAP_SHARED, file, 0) == MAP_FAILED ||
            write(ready, "", 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }

    static void mountOtherBlock() {
        if (unshare(CLONE_NEWNS) != 0 || mount("private", "/dev/shm", "tmpfs", 0, nullptr) != 0)
            _exit(1);
        put(SIZE);
    }

    pid_t m_process = 0;
    bool m_isMapped = false;
};

void expectBad(const std::string& found, const std::string& toDo) {
    EXPECT_THAT(cli::checkSharedMemory(""), isBad(HasSubstr(found), HasSubstr(toDo)));
}

TEST_F(SharedMemoryChecks, AcceptThatThereIsNone) {
    EXPECT_THAT(cli::checkSharedMemory(""), isGood());
    EXPECT_FALSE(std::filesystem::exists(BLOCK_PATH)) << "the check creates none";
}

TEST_F(SharedMemoryChecks, NameTheProcessesThatUseIt) {
    put(SIZE);
    const BlockUser one;
    ASSERT_TRUE(one.isMapped());
    EXPECT_THAT(cli::checkSharedMemory(""), isGood("used by process " + one.id()));
    const BlockUser other;
    ASSERT_TRUE(other.isMapped());
    EXPECT_THAT(cli::checkSharedMemory(""),
                isGood(AllOf(HasSubstr("used by processes "), HasSubstr(" " + one.id()),
                             HasSubstr(" " + other.id()))));
}

TEST_F(SharedMemoryChecks, NoteOneThatNoProcessUses) {
    put(SIZE);
    EXPECT_THAT(cli::checkSharedMemory(""),
                isNote(HasSubstr("left behind"), HasSubstr("rm /dev/shm/wifi_shmem")));
    EXPECT_TRUE(std::filesystem::exists(BLOCK_PATH)) << "the check does not remove it";
}

TEST_F(SharedMemoryChecks, DoNotCountAProcessThatUsesAnotherBlockOfThatName) {
    put(SIZE);
    const BlockUser other(BlockUser::Where::OTHER_MOUNT);
    if (!other.isMapped())
        GTEST_SKIP() << "this system allows no private mounts";
    EXPECT_THAT(cli::checkSharedMemory(""), isNote());
}

TEST_F(SharedMemoryChecks, ReportOneOfAnotherSize) {
    put(SIZE + 1);
    expectBad("made by another build: it has " + std::to_string(SIZE + 1) + " bytes, not " +
                  std::to_string(SIZE),
              "rm /dev/shm/wifi_shmem");
}

TEST_F(SharedMemoryChecks, ReportWhatIsNoRegularFile) {
    std::filesystem::create_symlink("/dev/shm/elsewhere", BLOCK_PATH);
    expectBad("not a regular file", "rm /dev/shm/wifi_shmem");
    std::filesystem::remove(BLOCK_PATH);
    ASSERT_EQ(mkfifo(BLOCK_PATH, 0600), 0);
    expectBad("not a regular file", "rm /dev/shm/wifi_shmem");
}

TEST_F(SharedMemoryChecks, ReportOneOfAnotherUser) {
    put(SIZE);
    if (chown(BLOCK_PATH, OTHER_ID, OTHER_ID) != 0)
        GTEST_SKIP() << "only root can give a file away";
    expectBad("belongs to another user", "let all of them run as one user");
}

class BlockOfRoot : public SharedMemoryChecks {
protected:
    void SetUp() override {
        put(SIZE);
        if (!test::OrdinaryUser())
            GTEST_SKIP() << "only root can become another user";
    }

    static cli::Finding findingWithMode(mode_t mode) {
        chmod(BLOCK_PATH, mode);
        const test::OrdinaryUser user;
        return cli::checkSharedMemory("");
    }
};

TEST_F(BlockOfRoot, IsBadWhereItIsClosedToThisUser) {
    EXPECT_THAT(findingWithMode(0755),
                isBad(HasSubstr("is closed to this user"), HasSubstr("run platwifi as the user")));
}

TEST_F(BlockOfRoot, IsGoodWhereItIsOpenToThisUser) {
    EXPECT_THAT(findingWithMode(0777), isGood());
}

} // namespace
