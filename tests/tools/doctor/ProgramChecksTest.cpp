// The checks of the programs that the library runs, of the supplicant's process and of its pid file.

#include "DoctorWorld.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using cli::Finding;
using cli::Health;
using testing::HasSubstr;

class ProgramChecks : public test::DoctorWorld {
protected:
    std::string program(const std::string& name) const { return m_standIn.folder() + "/" + name; }

    void replace(const std::string& name, std::filesystem::perms rights) const {
        std::filesystem::remove(program(name));
        std::ofstream(program(name)) << "#!/bin/sh\n";
        std::filesystem::permissions(program(name), rights);
    }
};

TEST_F(ProgramChecks, ShowThePathThatALinkToTheClientLeadsTo) {
    replace("elsewhere", std::filesystem::perms::owner_all);
    std::filesystem::remove(program("wpa_cli"));
    std::filesystem::create_symlink("elsewhere", program("wpa_cli"));
    const Finding finding = cli::checkClient("");
    EXPECT_EQ(finding.health, Health::GOOD);
    EXPECT_EQ(finding.found, program("elsewhere"));
}

TEST_F(ProgramChecks, ReportAMissingClient) {
    std::filesystem::remove(program("wpa_cli"));
    const Finding finding = cli::checkClient("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "there is no program " + program("wpa_cli"));
    EXPECT_THAT(finding.toDo, HasSubstr("apt-get install wpasupplicant"));
}

TEST_F(ProgramChecks, ReportALinkToAMissingClient) {
    std::filesystem::remove(program("wpa_cli"));
    std::filesystem::create_symlink("/no/such/client", program("wpa_cli"));
    EXPECT_EQ(cli::checkClient("").health, Health::BAD);
}

TEST_F(ProgramChecks, ReportAFolderInPlaceOfTheClient) {
    std::filesystem::remove(program("wpa_cli"));
    std::filesystem::create_directory(program("wpa_cli"));
    EXPECT_EQ(cli::checkClient("").health, Health::BAD);
}

TEST_F(ProgramChecks, ReportAClientThatCannotBeExecuted) {
    replace("wpa_cli", std::filesystem::perms::owner_read);
    const Finding finding = cli::checkClient("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.toDo, "allow it: chmod a+x " + program("wpa_cli"));
}

TEST_F(ProgramChecks, ReportAMissingProcessLister) {
    EXPECT_EQ(cli::checkProcessLister("").health, Health::GOOD);
    std::filesystem::remove(program("pidin"));
    const Finding finding = cli::checkProcessLister("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "there is no program " + program("pidin"));
}

TEST_F(ProgramChecks, SayHowToStartTheSupplicantForTheInterface) {
    EXPECT_EQ(cli::checkProcess("").health, Health::GOOD);
    m_standIn.reset();
    m_standIn.on({"*"}).prints("1 init\n");
    const Finding finding = cli::checkProcess("wlan5");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "wpa_supplicant is not running");
    EXPECT_THAT(finding.toDo, HasSubstr("-i wlan5 -c FILE"));
    EXPECT_THAT(cli::checkProcess("").toDo, HasSubstr("-i wlan0 -c FILE"));
}

TEST_F(ProgramChecks, FindTheSupplicantWithAnyNameOfAnInterface) {
    EXPECT_EQ(cli::checkProcess("a name that no interface can have").health, Health::GOOD);
}

TEST_F(ProgramChecks, AcceptAMissingPidFile) {
    EXPECT_EQ(cli::checkPidFile("").health, Health::GOOD);
}

TEST_F(ProgramChecks, AcceptThePidFileOfARunningProcess) {
    std::ofstream(PID_FILE) << getpid() << '\n';
    const Finding finding = cli::checkPidFile("");
    EXPECT_EQ(finding.health, Health::GOOD);
    EXPECT_EQ(finding.found, "names process " + std::to_string(getpid()));
}

TEST_F(ProgramChecks, NoteThePidFileOfAProcessThatHasEnded) {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    std::ofstream(PID_FILE) << child << '\n';
    const Finding finding = cli::checkPidFile("");
    EXPECT_EQ(finding.health, Health::NOTE);
    EXPECT_EQ(finding.toDo, "remove it as root: rm " + PID_FILE);
}

TEST_F(ProgramChecks, NoteAPidFileThatNamesNoProcess) {
    for (const char* const text : {"", "none\n", "-1\n", "0\n"}) {
        std::ofstream(PID_FILE) << text;
        EXPECT_EQ(cli::checkPidFile("").health, Health::NOTE) << text;
    }
}

} // namespace
