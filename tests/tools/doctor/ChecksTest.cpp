// Which checks run, in which order, and which findings are obstacles to reaching the supplicant.

#include "checks/Checks.h"

#include "DoctorWorld.h"
#include "support/Leftovers.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <vector>

namespace {

using cli::Finding;
using cli::Health;
using testing::ElementsAre;

class Checks : public test::DoctorWorld {};

std::vector<std::string> subjectsOf(const std::vector<Finding>& findings) {
    std::vector<std::string> subjects;
    subjects.reserve(findings.size());
    for (const Finding& finding : findings)
        subjects.push_back(finding.subject);
    return subjects;
}

std::vector<std::string> subjectsThatAre(Health health, const std::vector<Finding>& findings) {
    std::vector<Finding> selected;
    for (const Finding& finding : findings) {
        if (finding.health == health)
            selected.push_back(finding);
    }
    return subjectsOf(selected);
}

std::set<std::string> filesIn(const std::string& folder) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.insert(entry.path());
    return files;
}

TEST_F(Checks, FindNoFaultOnAHealthyHost) {
    const auto findings = cli::examine("");
    EXPECT_THAT(subjectsOf(findings),
                ElementsAre("profile", "client", "quick client", "process lister", "radio",
                            "other managers", "supplicant", "control socket", "reply", "interface",
                            "update_config", "configuration", "country", "address", "key file",
                            "shared memory", "pid file"));
    EXPECT_EQ(subjectsThatAre(Health::GOOD, findings), subjectsOf(findings));
    for (const Finding& finding : findings) {
        EXPECT_NE(finding.found, "") << finding.subject;
        EXPECT_EQ(finding.toDo, "") << finding.subject;
    }
}

TEST_F(Checks, FindNoFaultForANamedInterface) {
    EXPECT_EQ(subjectsThatAre(Health::GOOD, cli::examine("wlan0")).size(), 17U);
}

TEST_F(Checks, LeaveOutWhatNeedsTheSupplicantThatIsNotRunning) {
    m_standIn.reset();
    m_standIn.on({"*"}).prints("1 init\n");
    const auto findings = cli::examine("");
    EXPECT_THAT(subjectsOf(findings),
                ElementsAre("profile", "client", "quick client", "process lister", "radio",
                            "other managers", "supplicant", "key file", "shared memory",
                            "pid file"));
    EXPECT_THAT(subjectsThatAre(Health::BAD, findings), ElementsAre("supplicant"));
}

TEST_F(Checks, LeaveOutWhatNeedsAProgramThatIsMissing) {
    std::filesystem::remove(m_standIn.folder() + "/pidin");
    EXPECT_THAT(subjectsOf(cli::examine("")),
                ElementsAre("profile", "client", "quick client", "process lister", "radio",
                            "key file", "shared memory", "pid file"));
    std::filesystem::remove(m_standIn.folder() + "/wpa_cli");
    EXPECT_THAT(subjectsOf(cli::examine("")),
                ElementsAre("profile", "client", "radio", "key file", "shared memory", "pid file"));
}

TEST_F(Checks, GoOnAfterAFaultThatIsNoObstacle) {
    m_standIn.reset();
    m_standIn.on({"-iwlan0", "get", "update_config"}).prints("0");
    answer();
    const auto findings = cli::examine("");
    EXPECT_THAT(subjectsThatAre(Health::BAD, findings), ElementsAre("update_config"));
    EXPECT_EQ(findings.size(), 17U);
}

TEST_F(Checks, LeaveNothingBehind) {
    const auto before = test::Leftovers::now();
    const auto filesBefore = filesIn("/tmp");
    cli::examine("");
    EXPECT_TRUE(test::Leftovers::now() == before);
    EXPECT_EQ(filesIn("/tmp"), filesBefore);
    EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem"));
}

TEST_F(Checks, ChangeNothingInTheSupplicant) {
    cli::examine("");
    for (const auto& call : m_standIn.calls()) {
        const std::string& word = call.at(call.size() > 2 ? 2 : 1);
        EXPECT_THAT(word, testing::AnyOf("arg", "--version", "interface", "ping", "get",
                                         "get_capability", "status"));
    }
}

TEST_F(Checks, FindNoObstacleOnAHealthyHost) {
    EXPECT_FALSE(cli::obstacle(""));
    EXPECT_FALSE(cli::obstacle("wlan0"));
}

TEST_F(Checks, CountNoFaultAsAnObstacleThatOnlyPreventsASave) {
    m_standIn.reset();
    m_standIn.on({"-iwlan0", "get", "update_config"}).prints("0");
    answer();
    std::ofstream("/dev/shm/wifi_shmem") << "no block";
    EXPECT_FALSE(cli::obstacle(""));
    std::filesystem::remove("/dev/shm/wifi_shmem");
}

TEST_F(Checks, NameTheMostBasicObstacle) {
    std::filesystem::remove_all(FOLDER);
    EXPECT_EQ(cli::obstacle("").value_or(Finding()).subject, "control socket");
    std::filesystem::remove(m_standIn.folder() + "/wpa_cli");
    EXPECT_EQ(cli::obstacle("").value_or(Finding()).subject, "client");
}

} // namespace
