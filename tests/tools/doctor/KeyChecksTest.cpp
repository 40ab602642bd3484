// The check of the cipher's key file, which does not create one.

#include "checks/CheckFunctions.h"
#include "support/KeyWorld.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

using cli::Finding;
using cli::Health;
using testing::HasSubstr;
using testing::Not;

const std::string KEY(32, 'k');

class KeyChecks : public test::KeyWorld {};

TEST_F(KeyChecks, CreateNoKeyFile) {
    const Finding finding = cli::checkKeyFile("");
    EXPECT_EQ(finding.health, Health::GOOD);
    EXPECT_THAT(finding.found, HasSubstr("none yet"));
    EXPECT_FALSE(std::filesystem::exists("/tmp/keys"));
}

TEST_F(KeyChecks, AcceptAWholeKeyFile) {
    putKey(KEY);
    const Finding finding = cli::checkKeyFile("");
    EXPECT_EQ(finding.health, Health::GOOD);
    EXPECT_EQ(finding.found, "is whole, and closed to other users");
}

TEST_F(KeyChecks, AcceptTheFileThatTheCipherCreates) {
    ASSERT_EQ(test::encrypted("secret").status, 0);
    EXPECT_EQ(cli::checkKeyFile("").health, Health::GOOD);
}

TEST_F(KeyChecks, ReportAKeyFileThatOthersCanRead) {
    putKey(KEY);
    setKeyMode(0640);
    const Finding finding = cli::checkKeyFile("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "key file " + KEY_FILE + " is open to group or others");
    EXPECT_EQ(finding.toDo, "make sure that no other user has read it, then: chmod 600");
}

TEST_F(KeyChecks, ReportAKeyFileOfAnotherSize) {
    putKey(KEY + "k");
    const Finding finding = cli::checkKeyFile("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_THAT(finding.found, HasSubstr("does not hold 32 bytes"));
    EXPECT_THAT(finding.found, Not(HasSubstr("kkk")));
    EXPECT_THAT(finding.toDo, HasSubstr("restore it"));
}

TEST_F(KeyChecks, ReportALink) {
    putKey(KEY);
    std::filesystem::rename(KEY_FILE, "/tmp/keys/elsewhere");
    std::filesystem::create_symlink("/tmp/keys/elsewhere", KEY_FILE);
    const Finding finding = cli::checkKeyFile("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_THAT(finding.found, HasSubstr("is a symbolic link"));
}

TEST_F(KeyChecks, ReportAKeyFileOfAnotherUser) {
    putKey(KEY);
    if (chown(KEY_FILE.c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "only root can give a file away";
    const Finding finding = cli::checkKeyFile("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_THAT(finding.found, HasSubstr("belongs to another user"));
}

} // namespace
