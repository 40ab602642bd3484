// The check of the cipher's key file, which does not create one. The command line works without the file, so
// there are only notes.

#include "Findings.h"
#include "support/KeyWorld.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

using test::isGood;
using test::isNote;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string KEY(32, 'k');

class KeyChecks : public test::KeyWorld {};

TEST_F(KeyChecks, CreateNoKeyFile) {
    EXPECT_THAT(cli::checkKeyFile(""), isGood(HasSubstr("none yet")));
    EXPECT_FALSE(std::filesystem::exists("/tmp/keys"));
}

TEST_F(KeyChecks, AcceptAWholeKeyFile) {
    putKey(KEY);
    EXPECT_THAT(cli::checkKeyFile(""), isGood("is whole, and closed to other users"));
}

TEST_F(KeyChecks, AcceptTheFileThatTheCipherCreates) {
    ASSERT_EQ(test::encrypted("secret").status, 0);
    EXPECT_THAT(cli::checkKeyFile(""), isGood());
}

TEST_F(KeyChecks, NoteAKeyFileThatOthersCanRead) {
    putKey(KEY);
    setKeyMode(0640);
    EXPECT_THAT(cli::checkKeyFile(""),
                isNote("key file " + KEY_FILE +
                           " is open to group or others: a Java service of this user, and xml "
                           "--full, fail",
                       "make sure that no other user has read it, then: chmod 600"));
}

TEST_F(KeyChecks, NoteAKeyFileOfAnotherSize) {
    putKey(KEY + "k");
    EXPECT_THAT(cli::checkKeyFile(""),
                isNote(AllOf(HasSubstr("does not hold 32 bytes"), Not(HasSubstr("kkk"))),
                       HasSubstr("restore it")));
}

TEST_F(KeyChecks, NoteALink) {
    putKey(KEY);
    std::filesystem::rename(KEY_FILE, "/tmp/keys/elsewhere");
    std::filesystem::create_symlink("/tmp/keys/elsewhere", KEY_FILE);
    EXPECT_THAT(cli::checkKeyFile(""), isNote(HasSubstr("is a symbolic link")));
}

TEST_F(KeyChecks, NoteAKeyFileOfAnotherUser) {
    putKey(KEY);
    if (chown(KEY_FILE.c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "only root can give a file away";
    EXPECT_THAT(cli::checkKeyFile(""), isNote(HasSubstr("belongs to another user")));
}

} // namespace
