// The checks of the programs that the library runs, of the supplicant's process and of its pid file.

#include "DoctorWorld.h"
#include "Findings.h"

#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using test::isBad;
using test::isGood;
using test::isNote;
using testing::_;
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
    EXPECT_THAT(cli::checkClient(""), isGood(program("elsewhere")));
}

TEST_F(ProgramChecks, TellTheQuickClientFromTheHosts) {
    m_standIn.reset();
    m_standIn.on({"--version"}).prints("platwifi quick client 1.2.3\n");
    EXPECT_THAT(cli::checkQuickClient(""), isGood("in use"));
    m_standIn.reset();
    m_standIn.on({"--version"}).printsError("wpa_cli: invalid option -- '-'\n").exits(255);
    EXPECT_THAT(cli::checkQuickClient(""), isGood(HasSubstr("host's client")));
}

TEST_F(ProgramChecks, ReportAMissingClient) {
    std::filesystem::remove(program("wpa_cli"));
    EXPECT_THAT(cli::checkClient(""), isBad("there is no program " + program("wpa_cli"),
                                            HasSubstr("apt-get install wpasupplicant")));
}

TEST_F(ProgramChecks, ReportALinkToAMissingClient) {
    std::filesystem::remove(program("wpa_cli"));
    std::filesystem::create_symlink("/no/such/client", program("wpa_cli"));
    EXPECT_THAT(cli::checkClient(""), isBad());
}

TEST_F(ProgramChecks, ReportAFolderInPlaceOfTheClient) {
    std::filesystem::remove(program("wpa_cli"));
    std::filesystem::create_directory(program("wpa_cli"));
    EXPECT_THAT(cli::checkClient(""), isBad());
}

TEST_F(ProgramChecks, ReportAClientThatCannotBeExecuted) {
    replace("wpa_cli", std::filesystem::perms::owner_read);
    EXPECT_THAT(cli::checkClient(""), isBad(_, "allow it: chmod a+x " + program("wpa_cli")));
}

TEST_F(ProgramChecks, ReportAMissingProcessLister) {
    EXPECT_THAT(cli::checkProcessLister(""), isGood());
    std::filesystem::remove(program("pidin"));
    EXPECT_THAT(cli::checkProcessLister(""), isBad("there is no program " + program("pidin")));
}

TEST_F(ProgramChecks, SayHowToStartTheSupplicantForTheInterface) {
    EXPECT_THAT(cli::checkProcess(""), isGood());
    m_standIn.reset();
    m_standIn.on({"*"}).prints("1 init\n");
    EXPECT_THAT(cli::checkProcess("wlan5"),
                isBad("wpa_supplicant is not running", HasSubstr("-i wlan5 -c FILE")));
    EXPECT_THAT(cli::checkProcess("").toDo, HasSubstr("-i wlan0 -c FILE"));
}

TEST_F(ProgramChecks, FindTheSupplicantWithAnyNameOfAnInterface) {
    EXPECT_THAT(cli::checkProcess("a name that no interface can have"), isGood());
}

TEST_F(ProgramChecks, AcceptAMissingPidFile) {
    EXPECT_THAT(cli::checkPidFile(""), isGood());
}

TEST_F(ProgramChecks, AcceptThePidFileOfARunningProcess) {
    std::ofstream(PID_FILE) << getpid() << '\n';
    EXPECT_THAT(cli::checkPidFile(""), isGood("names process " + std::to_string(getpid())));
}

TEST_F(ProgramChecks, NoteThePidFileOfAProcessThatHasEnded) {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    std::ofstream(PID_FILE) << child << '\n';
    EXPECT_THAT(cli::checkPidFile(""), isNote(_, "remove it as root: rm " + PID_FILE));
}

TEST_F(ProgramChecks, NoteAPidFileThatNamesNoProcess) {
    for (const char* const text : {"", "none\n", "-1\n", "0\n"}) {
        std::ofstream(PID_FILE) << text;
        EXPECT_THAT(cli::checkPidFile(""), isNote()) << text;
    }
}

} // namespace
