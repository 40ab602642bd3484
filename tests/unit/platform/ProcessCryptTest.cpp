// The cipher for secrets that stay in this process.

#include "platform/Crypt.h"

#include "support/KeyWorld.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace {

using test::decrypted;
using test::encrypted;
using test::encryptedForThisProcess;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ProcessCrypt : public test::KeyWorld {};

TEST_F(ProcessCrypt, RestoresASecret) {
    for (const char* const secret : {"correct horse", "", "x", "\xC3\xA9\xF0\x9F\x98\x80\x01\xFF"})
        EXPECT_EQ(decrypted(*encryptedForThisProcess(secret).text).text, secret);
}

TEST_F(ProcessCrypt, NeitherReadsNorMakesAKeyFile) {
    const std::string text = *encryptedForThisProcess("a secret").text;
    EXPECT_FALSE(std::filesystem::exists("/tmp/keys"));
    putKey("too short"); // a key file that is read is refused
    EXPECT_EQ(decrypted(text).text, "a secret");
    EXPECT_EQ(encryptedForThisProcess("a secret").status, 0);
    EXPECT_EQ(encrypted("a secret").errorId, "crypt.key-size");
}

TEST_F(ProcessCrypt, MakesAnotherTextEachTime) {
    std::set<std::string> texts;
    for (int i = 0; i < 20; ++i) {
        texts.insert(*encryptedForThisProcess("the same secret").text);
        EXPECT_THAT(*texts.begin(), StartsWith("process1:"));
        EXPECT_THAT(*texts.begin(), Not(HasSubstr("secret")));
    }
    EXPECT_EQ(texts.size(), 20U);
}

TEST_F(ProcessCrypt, RefusesATextWithAnyCharacterChanged) {
    const std::string text = *encryptedForThisProcess("a secret").text;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string changed = text;
        changed[i] = changed[i] == 'A' ? 'B' : 'A';
        EXPECT_THAT(decrypted(changed).errorId,
                    testing::AnyOf("crypt.damaged", "crypt.other-process"))
            << "character " << i;
    }
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_EQ(decrypted(text.substr(0, length)).errorId, "crypt.damaged") << length;
}

// Neither kind of text can be passed off as the other.
TEST_F(ProcessCrypt, RefusesATextOfTheKeyFileWithItsPrefix) {
    const std::string filed = *encrypted("a secret").text;
    const std::string own = *encryptedForThisProcess("a secret").text;
    EXPECT_EQ(decrypted("process1:" + filed.substr(7)).errorId, "crypt.other-process");
    EXPECT_EQ(decrypted("crypt1:" + own.substr(9)).errorId, "crypt.wrong-key");
}

// Also run alone by outputOfAnotherProcess().
TEST_F(ProcessCrypt, MakesPrintableText) {
    const std::string text = *encryptedForThisProcess("a secret").text;
    EXPECT_EQ(text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                     "0123456789+/=:"),
              std::string::npos);
    std::printf("\n%s\n", text.c_str());
}

// What another process prints, which runs the test above alone.
std::string outputOfAnotherProcess() {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const std::vector<std::string> words{TEST_EMULATOR self,
                                         "--gtest_filter=ProcessCrypt.MakesPrintableText"};
    // Without a shard the process runs the test; with this one's it might leave it to another.
    std::string command = "unset GTEST_TOTAL_SHARDS GTEST_SHARD_INDEX; exec";
    for (const std::string& word : words)
        command += " '" + word + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    for (int byte = 0; pipe && (byte = std::fgetc(pipe.get())) != EOF;)
        output += static_cast<char>(byte);
    return output;
}

// Processes must not share a key: each makes its own when it first needs one.
TEST_F(ProcessCrypt, RefusesATextOfAnotherProcess) {
    const std::string output = outputOfAnotherProcess();
    const auto start = output.find("process1:");
    ASSERT_NE(start, std::string::npos) << output;
    const std::string text = output.substr(start, output.find('\n', start) - start);
    EXPECT_EQ(decrypted(text).errorId, "crypt.other-process");
}

TEST_F(ProcessCrypt, MayBeUsedByAForkedChild) {
    const std::string text = *encryptedForThisProcess("a secret").text;
    const pid_t child = fork();
    if (child == 0)
        _exit(decrypted(text).text == "a secret" ? 0 : 1);
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(ProcessCrypt, ServesThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::array<std::string, 4> results;
    threads.reserve(results.size());
    for (std::string& result : results) {
        threads.emplace_back([&result] {
            result =
                decrypted(encryptedForThisProcess("a secret").text.value_or("")).text.value_or("");
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(results, testing::Each("a secret"));
}

TEST_F(ProcessCrypt, RefusesNullAndATextThatIsTooLong) {
    ErrorHandler errors;
    char left = 'x';
    char* result = &left;
    EXPECT_NE(Crypt::encryptForThisProcess(&errors, nullptr, &result), 0);
    EXPECT_EQ(result, nullptr);
    EXPECT_STREQ(errors.savedError()->id(), "crypt.null-input");
    EXPECT_EQ(encryptedForThisProcess(std::string(Crypt::MAXIMUM_LENGTH + 1, 'x')).errorId,
              "crypt.too-long");
}

} // namespace
