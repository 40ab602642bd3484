#include "platform/Crypt.h"

#include "support/Files.h"
#include "support/KeyWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <sstream>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using test::contentOf;
using test::decrypted;
using test::encrypted;
using test::KeyWorld;
using test::Outcome;
using testing::AllOf;
using testing::HasSubstr;

const std::string A_KEY = "0123456789abcdef0123456789ABCDEF";

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

std::ptrdiff_t entriesIn(const std::string& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

class CryptKeyFile : public KeyWorld {
protected:
    void TearDown() override {
        umount("/tmp/sealed");
        KeyWorld::TearDown();
    }

    // Both operations refuse the key file, and their messages name it and the cause.
    static void expectRefused(const char* id, const char* cause) {
        const std::string text = "crypt1:" + std::string(48, 'A');
        for (const Outcome& outcome : {encrypted("a secret"), decrypted(text)}) {
            EXPECT_NE(outcome.status, 0);
            EXPECT_FALSE(outcome.text);
            EXPECT_EQ(outcome.errorId, id);
            EXPECT_THAT(outcome.message,
                        AllOf(HasSubstr(std::getenv("PLATFORM_KEY_FILE")), HasSubstr(cause)));
        }
    }
};

TEST_F(CryptKeyFile, IsMadeAtFirstUseWithRightsForThisUserOnly) {
    const mode_t before = umask(0);
    const Outcome outcome = encrypted("a secret");
    umask(before);
    EXPECT_EQ(outcome.status, 0) << outcome.message;
    EXPECT_EQ(modeOf(KEY_FILE), 0600u);
    EXPECT_EQ(std::filesystem::file_size(KEY_FILE), 32u);
    for (const char* folder : {"/tmp/keys", "/tmp/keys/of the", "/tmp/keys/of the/device"})
        EXPECT_EQ(modeOf(folder), 0700u);
    EXPECT_EQ(entriesIn(FOLDER), 1) << "no temporary file is left";
}

TEST_F(CryptKeyFile, HasItsModeUnderAnyUmask) {
    std::filesystem::create_directories(FOLDER);
    const mode_t before = umask(0777);
    EXPECT_EQ(encrypted("a secret").status, 0);
    umask(before);
    EXPECT_EQ(modeOf(KEY_FILE), 0600u);
}

TEST_F(CryptKeyFile, IsNotReplacedAndMayBeReadOnly) {
    putKey(A_KEY);
    for (const mode_t mode : {0600u, 0400u}) {
        setKeyMode(mode);
        EXPECT_EQ(encrypted("a secret").status, 0);
        EXPECT_EQ(contentOf(KEY_FILE), A_KEY);
    }
}

TEST_F(CryptKeyFile, DiffersEachTime) {
    encrypted("a secret");
    const std::string first = contentOf(KEY_FILE);
    removeKey();
    encrypted("a secret");
    EXPECT_NE(contentOf(KEY_FILE), first);
}

TEST_F(CryptKeyFile, IsNotMadeToDecipher) {
    const std::string text = *encrypted("a secret").text;
    removeKey();
    const Outcome plain = decrypted(text);
    EXPECT_EQ(plain.errorId, "crypt.no-key");
    EXPECT_THAT(plain.message, HasSubstr(KEY_FILE));
    EXPECT_FALSE(std::filesystem::exists(KEY_FILE));
}

TEST_F(CryptKeyFile, IsRefusedWithRightsForOthers) {
    putKey(A_KEY);
    for (const mode_t mode : {0640u, 0620u, 0610u, 0604u, 0602u, 0601u, 0666u}) {
        setKeyMode(mode);
        expectRefused("crypt.key-exposed", "chmod 600");
    }
}

TEST_F(CryptKeyFile, IsRefusedWithAnotherSize) {
    for (const std::string& key : {std::string(), A_KEY.substr(1), A_KEY + "x"}) {
        putKey(key);
        expectRefused("crypt.key-size", "32 bytes");
    }
}

TEST_F(CryptKeyFile, IsRefusedAsASymbolicLink) {
    putKey(A_KEY);
    std::filesystem::rename(KEY_FILE, FOLDER + "/elsewhere");
    std::filesystem::create_symlink("elsewhere", KEY_FILE);
    expectRefused("crypt.key-type", "symbolic link");
    EXPECT_THAT(encrypted("a secret").message,
                HasSubstr(std::string(KEY_FILE) + " is a symbolic link"));
    std::filesystem::remove(FOLDER + "/elsewhere");
    expectRefused("crypt.key-type", "symbolic link");
}

TEST_F(CryptKeyFile, IsRefusedUnlessItIsARegularFile) {
    std::filesystem::create_directories(KEY_FILE);
    expectRefused("crypt.key-type", "not a regular file");
    std::filesystem::remove(KEY_FILE);
    ASSERT_EQ(mkfifo(KEY_FILE.c_str(), 0600), 0);
    expectRefused("crypt.key-type", "not a regular file");
}

TEST_F(CryptKeyFile, IsRefusedWithAnotherOwner) {
    putKey(A_KEY);
    if (chown(KEY_FILE.c_str(), 1, 1) != 0)
        GTEST_SKIP() << "no other user's file can be made here";
    expectRefused("crypt.key-owner", "another user");
}

TEST_F(CryptKeyFile, CannotBeMadeInAReadOnlyFolder) {
    std::filesystem::create_directories("/tmp/sealed");
    if (mount("sealed", "/tmp/sealed", "tmpfs", MS_RDONLY, nullptr) != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    for (const char* path : {"/tmp/sealed/crypt.key", "/tmp/sealed/deeper/crypt.key"}) {
        setenv("PLATFORM_KEY_FILE", path, 1);
        const Outcome outcome = encrypted("a secret");
        EXPECT_EQ(outcome.errorId, "crypt.key-folder");
        EXPECT_THAT(outcome.message, AllOf(HasSubstr(path), HasSubstr("Read-only file system"),
                                           HasSubstr("PLATFORM_KEY_FILE")));
    }
}

TEST_F(CryptKeyFile, CannotBeMadeBelowAFile) {
    std::ofstream("/tmp/file") << "x";
    setenv("PLATFORM_KEY_FILE", "/tmp/file/crypt.key", 1);
    EXPECT_EQ(encrypted("a secret").errorId, "crypt.key-unreadable");
    setenv("PLATFORM_KEY_FILE", ("/tmp/" + std::string(300, 'x')).c_str(), 1);
    EXPECT_EQ(encrypted("a secret").errorId, "crypt.key-unreadable");
}

TEST_F(CryptKeyFile, IsInTheStateFolderOfTheSystemForRoot) {
    if (geteuid() != 0 || mount("state", "/var/lib", "tmpfs", 0, nullptr) != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    unsetenv("PLATFORM_KEY_FILE");
    const Outcome outcome = encrypted("a secret");
    EXPECT_EQ(outcome.status, 0) << outcome.message;
    EXPECT_EQ(modeOf("/var/lib/platform/crypt.key"), 0600u);
    EXPECT_EQ(modeOf("/var/lib/platform"), 0700u);
    umount("/var/lib");
}

constexpr int USERS = 8;

/// A barrier: lets all its users continue when the last one has arrived.
class Gate {
public:
    void pass() {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_arrived;
        m_full.notify_all();
        m_full.wait(lock, [this] { return m_arrived >= USERS; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_full;
    int m_arrived = 0;
};

TEST_F(CryptKeyFile, IsTheSameForThreadsThatUseItFirstTogether) {
    for (int round = 0; round < 20; ++round) {
        std::filesystem::remove_all("/tmp/keys");
        Gate gate;
        std::vector<std::string> texts(USERS);
        std::vector<std::thread> threads;
        for (std::string& text : texts)
            threads.emplace_back([&gate, &text] {
                gate.pass();
                text = encrypted("a secret").text.value_or("");
                EXPECT_EQ(decrypted(text).text, "a secret");
            });
        for (std::thread& thread : threads)
            thread.join();
        for (const std::string& text : texts)
            EXPECT_EQ(decrypted(text).text, "a secret");
        EXPECT_EQ(entriesIn(FOLDER), 1);
    }
}

// Enciphers as soon as the writing end of `gate` is closed, and sends the text.
[[noreturn]] void encipherInChild(const int gate[2], const int texts[2]) {
    close(gate[1]);
    char byte = 0;
    static_cast<void>(!read(gate[0], &byte, 1));
    const std::string text = encrypted("a secret").text.value_or("none") + '\n';
    const ssize_t sent = write(texts[1], text.data(), text.size());
    _exit(sent == static_cast<ssize_t>(text.size()) ? 0 : 1);
}

std::vector<std::string> linesFrom(int descriptor) {
    std::string all;
    char buffer[4096];
    for (ssize_t size = 0; (size = read(descriptor, buffer, sizeof(buffer))) > 0;)
        all.append(buffer, static_cast<std::size_t>(size));
    std::istringstream stream(all);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST_F(CryptKeyFile, IsTheSameForProcessesThatUseItFirstTogether) {
    for (int round = 0; round < 10; ++round) {
        std::filesystem::remove_all("/tmp/keys");
        int gate[2];
        int texts[2];
        ASSERT_EQ(pipe(gate), 0);
        ASSERT_EQ(pipe(texts), 0);
        std::vector<pid_t> children;
        for (int i = 0; i < USERS; ++i) {
            children.push_back(fork());
            if (children.back() == 0)
                encipherInChild(gate, texts);
        }
        for (const int descriptor : {gate[0], gate[1], texts[1]})
            close(descriptor);
        const std::vector<std::string> lines = linesFrom(texts[0]);
        close(texts[0]);
        for (const pid_t child : children)
            EXPECT_EQ(waitpid(child, nullptr, 0), child);
        EXPECT_EQ(lines.size(), static_cast<std::size_t>(USERS));
        for (const std::string& line : lines)
            EXPECT_EQ(decrypted(line).text, "a secret");
    }
}

TEST_F(CryptKeyFile, DoesNotEndAProcessWithAFileSizeLimit) {
    const auto encryptUnderLimit = [] {
        const rlimit none{0, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &none);
        std::_Exit(encrypted("a secret").status == 0 ? 1 : 0);
    };
    EXPECT_EXIT(encryptUnderLimit(), testing::ExitedWithCode(0), testing::IsEmpty());
}

} // namespace
