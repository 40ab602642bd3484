#include "edits/Secrets.h"

#include "doctor/DoctorWorld.h"
#include "edits/ConsoleInput.h"
#include "edits/Edits.h"
#include "platform/Crypt.h"
#include "platform/FileDescriptor.h"
#include "process/Interrupt.h"
#include "support/KeyWorld.h"
#include "values/Failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

using cli::Edits;
using cli::Failure;
using cli::readSecret;
using cli::WrongUse;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr const char* FILE_NAME = "/tmp/secret";

/// Reads secrets from files, and from a standard input that the test writes.
class TheSecret : public testing::Test {
protected:
    TheSecret() { setenv("PLATFORM_KEY_FILE", "/tmp/crypt.key", 1); }
    ~TheSecret() override { dup2(m_before.number(), STDIN_FILENO); }

    static void putFile(const std::string& text) {
        unlink(FILE_NAME);
        std::ofstream(FILE_NAME, std::ios::binary) << text;
    }

    static void putInput(const std::string& text) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
        close(ends[1]);
        dup2(ends[0], STDIN_FILENO);
        close(ends[0]);
    }

    std::string read(const std::string& source) { return readSecret("psk", source, m_interrupt); }

    std::string readFile(const std::string& text) {
        putFile(text);
        return read(std::string("@") + FILE_NAME);
    }

    std::string readInput(const std::string& text) {
        putInput(text);
        return read("-");
    }

    template <typename Error>
    std::string refusalOf(const std::string& source) {
        try {
            read(source);
        } catch (const Error& error) {
            return error.what();
        }
        ADD_FAILURE() << "accepted: " << source;
        return "";
    }

    cli::Interrupt m_interrupt;

private:
    const platform::FileDescriptor m_before{dup(STDIN_FILENO)};
};

struct Line {
    std::string text;
    std::string secret;
};

const Line LINES[] = {
    {"correct horse\n", "correct horse"},
    {"correct horse", "correct horse"},
    {"correct horse\r\n", "correct horse"},
    {"first\nsecond\n", "first"},
    {" blanks are kept \n", " blanks are kept "},
    {"a\rb\n", "a\rb"},
    {std::string(1024, 'x') + "\n", std::string(1024, 'x')},
    {"-\n", "-"},
    {"@file\n", "@file"},
};

TEST_F(TheSecret, IsTheFirstLineOfAFileOrOfTheInput) {
    for (const Line& line : LINES) {
        EXPECT_EQ(readFile(line.text), line.secret);
        EXPECT_EQ(readInput(line.text), line.secret);
    }
}

TEST_F(TheSecret, LeavesTheNextLineOfTheInputToTheNextSecret) {
    putInput("first\nsecond\n");
    EXPECT_EQ(read("-"), "first");
    EXPECT_EQ(read("-"), "second");
    EXPECT_THAT(refusalOf<Failure>("-"), HasSubstr("there is no psk on standard input"));
}

TEST_F(TheSecret, MayBeCleared) {
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(cli::enciphered(""), "");
}

struct BadLine {
    std::string text;
    const char* cause;
};

const BadLine BAD_LINES[] = {
    {"", "there is no psk"},
    {"\n", "there is no psk"},
    {"\r\n", "there is no psk"},
    {std::string(1025, 'x'), "too long"},
    {std::string("hid\0den\n", 8), "holds no text"},
};

TEST_F(TheSecret, IsRefusedFromLinesLikeThese) {
    for (const BadLine& line : BAD_LINES) {
        putFile(line.text);
        putInput(line.text);
        for (const std::string source : {"-", "@/tmp/secret"}) {
            const std::string refusal = refusalOf<Failure>(source);
            EXPECT_THAT(refusal, HasSubstr(line.cause));
            EXPECT_THAT(refusal, HasSubstr(source == "-" ? "standard input" : "/tmp/secret"));
            EXPECT_THAT(refusal, Not(HasSubstr("hid")));
            EXPECT_THAT(refusal, Not(HasSubstr("xxx")));
        }
    }
}

TEST_F(TheSecret, CannotBeReadFromAMissingFileOrAFolder) {
    EXPECT_THAT(refusalOf<Failure>("@/tmp/missing"), HasSubstr("/tmp/missing: No such file"));
    EXPECT_THAT(refusalOf<Failure>("@/tmp"), HasSubstr("/tmp: Is a directory"));
    EXPECT_THAT(refusalOf<Failure>("@"), HasSubstr("No such file"));
}

TEST_F(TheSecret, IsNotReadFromAFileOfAnotherUser) {
    putFile("secret\n");
    chmod(FILE_NAME, 0);
    const test::OrdinaryUser user;
    if (geteuid() == 0)
        GTEST_SKIP() << "this user may read every file, and cannot become another one";
    EXPECT_THAT(refusalOf<Failure>("@/tmp/secret"), HasSubstr("Permission denied"));
}

// A shell makes such a path of <(command).
TEST_F(TheSecret, MayComeThroughAPipeOfTheShell) {
    putInput("through a pipe\n");
    EXPECT_EQ(read("@/dev/fd/0"), "through a pipe");
}

TEST_F(TheSecret, IsNotTakenFromTheCommandLine) {
    const std::string refusal = refusalOf<WrongUse>("correct horse");
    EXPECT_THAT(refusal, HasSubstr("psk=- reads it from standard input"));
    EXPECT_THAT(refusal, Not(HasSubstr("correct horse")));
}

TEST_F(TheSecret, IsEncipheredForTheLibrary) {
    const std::string text = cli::enciphered("correct horse");
    EXPECT_THAT(text, Not(HasSubstr("correct")));
    EXPECT_EQ(test::decrypted(text).text, "correct horse");
}

TEST_F(TheSecret, NeedsNoKeyFile) {
    unlink("/tmp/crypt.key");
    EXPECT_EQ(test::decrypted(cli::enciphered("correct horse")).text, "correct horse");
    EXPECT_NE(access("/tmp/crypt.key", F_OK), 0);
    setenv("PLATFORM_KEY_FILE", "/tmp", 1); // no key file can be there
    EXPECT_EQ(test::decrypted(cli::enciphered("correct horse")).text, "correct horse");
}

TEST_F(TheSecret, ThatCannotBeEncipheredIsAFailure) {
    EXPECT_THROW(cli::enciphered(std::string(Crypt::MAXIMUM_LENGTH + 1, 'x')), Failure);
}

/// Assignments on the command line.
class TheEdits : public TheSecret {
protected:
    Edits edits(const std::vector<std::string>& assignments) {
        return {assignments, cli::ConsoleInput(m_interrupt)};
    }

    std::string refusalOf(const std::vector<std::string>& assignments) {
        try {
            edits(assignments);
        } catch (const WrongUse& error) {
            return error.what();
        }
        return "";
    }
};

TEST_F(TheEdits, HaveTheValuesForTheLibrary) {
    putInput("correct horse\n");
    const Edits some = edits({"psk=-", "key_mgmt=WPA-PSK", "eapIdentity="});
    EXPECT_THAT(some.valueOf("psk"), StartsWith("process1:"));
    EXPECT_EQ(some.valueOf("key_mgmt"), "2");
    EXPECT_EQ(some.valueOf("eapIdentity"), "") << "it is cleared";
    EXPECT_EQ(some.valueOf("bssid"), "") << "it is not among them";
}

TEST_F(TheEdits, TakeAPropertyThatTheUserHasNotWritten) {
    Edits some = edits({"priority=5"});
    some.add("key_mgmt", "WPA-PSK");
    EXPECT_EQ(some.valueOf("key_mgmt"), "2");
    EXPECT_EQ(some.valueOf("priority"), "5");
}

TEST_F(TheEdits, MayHaveAnEqualsSignInTheValue) {
    EXPECT_EQ(edits({"phase2=auth=MSCHAPV2"}).valueOf("phase2"), "auth=MSCHAPV2");
}

TEST_F(TheEdits, RefuseWhatIsNoNameAndValue) {
    EXPECT_THAT(refusalOf({"priority"}), HasSubstr("'priority' is no NAME=VALUE"));
    EXPECT_THAT(refusalOf({"=5"}), HasSubstr("'=5' is no NAME=VALUE"));
    EXPECT_THAT(refusalOf({""}), HasSubstr("'' is no NAME=VALUE"));
    EXPECT_THAT(refusalOf({"colour=red"}), HasSubstr("there is no property colour"));
}

TEST_F(TheEdits, RefuseAPropertyThatIsGivenTwice) {
    EXPECT_THAT(refusalOf({"priority=1", "priority=2"}), HasSubstr("priority is given twice"));
}

TEST_F(TheEdits, RefusePropertiesThatTheSupplicantReports) {
    for (const char* assignment : {"ssid=x", "status=enabled", "strength=5", "channel=6"})
        EXPECT_THAT(refusalOf({assignment}), HasSubstr("cannot be set"));
}

// Otherwise the user would type a secret for a command line that is refused afterwards.
TEST_F(TheEdits, ReadSecretsOnlyWhenEveryNameIsKnown) {
    putInput("correct horse\n");
    EXPECT_THAT(refusalOf({"psk=-", "colour=red"}), HasSubstr("colour"));
    EXPECT_EQ(read("-"), "correct horse");
}

} // namespace
