// The output and the exit status of the command doctor.

#include "CommandLine.h"
#include "DoctorWorld.h"
#include "TextLines.h"
#include "commands/Commands.h"
#include "display/Text.h"
#include "edits/ConsoleInput.h"
#include "host/Host.h"
#include "process/Interrupt.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <sstream>

namespace {

using Json = nlohmann::ordered_json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

/// Captures std::cout while the object exists.
class Captured {
public:
    Captured() : m_before(std::cout.rdbuf(m_text.rdbuf())) {}
    ~Captured() { std::cout.rdbuf(m_before); }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_before;
};

class Doctor : public test::DoctorWorld {
protected:
    std::string printed() {
        cli::Interrupt interrupt;
        const cli::ConsoleInput input(interrupt);
        cli::Context context{m_request, interrupt, input, m_console, cli::Console()};
        const Captured captured;
        cli::doctor(context);
        m_status = context.status;
        return captured.text();
    }

    void turnSavingOff() {
        m_standIn.reset();
        m_standIn.on({"-iwlan0", "get", "update_config"}).prints("0");
        answer();
    }

    cli::Request m_request;
    cli::Console m_console;
    cli::Status m_status = cli::WRONG_USE;
};

TEST_F(Doctor, SucceedsIfNothingIsWrong) {
    const std::string text = printed();
    EXPECT_EQ(m_status, cli::DONE);
    EXPECT_THAT(text, HasSubstr("\nok    update_config   is on: changes can be saved\n"));
    EXPECT_THAT(text, EndsWith("\nEverything is in order.\n"));
}

TEST_F(Doctor, PrintsWhatIsWrongAndWhatToDo) {
    turnSavingOff();
    const std::string text = printed();
    EXPECT_EQ(m_status, cli::FAILED);
    EXPECT_THAT(text, HasSubstr("\nbad   update_config   is off: nothing can be saved\n"
                                "                      put update_config=1 into the supplicant's "
                                "configuration, then restart it\n"));
    EXPECT_THAT(text, EndsWith("\n1 thing is wrong.\n"));
}

TEST_F(Doctor, EndsTheProgramWithItsStatus) {
    char program[] = "platwifi";
    char command[] = "doctor";
    char* arguments[] = {program, command, nullptr};
    const Captured captured;
    EXPECT_EQ(cli::runCommandLine(2, arguments), 0);
    turnSavingOff();
    EXPECT_EQ(cli::runCommandLine(2, arguments), 1);
}

TEST_F(Doctor, CountsWhatIsWrong) {
    turnSavingOff();
    std::filesystem::create_symlink("nowhere", "/dev/shm/wifi_shmem");
    EXPECT_THAT(printed(), EndsWith("\n2 things are wrong.\n"));
    std::filesystem::remove("/dev/shm/wifi_shmem");
}

TEST_F(Doctor, SucceedsIfThereAreOnlyNotes) {
    m_standIn.reset();
    m_standIn.on({"-iwlan0", "get", "update_config"}).prints("FAIL\n");
    answer();
    const std::string text = printed();
    EXPECT_EQ(m_status, cli::DONE);
    EXPECT_THAT(text, HasSubstr("\nnote  update_config   is unknown"));
    EXPECT_THAT(text, EndsWith("\nNothing is wrong.\n"));
}

TEST_F(Doctor, UsesColoursOnlyOnAConsoleThatHasThem) {
    turnSavingOff();
    EXPECT_THAT(printed(), Not(HasSubstr("\033")));
    m_console.hasColours = true;
    const std::string text = printed();
    EXPECT_THAT(text, HasSubstr("\n\033[31mbad   \033[0mupdate_config   is off"));
    EXPECT_THAT(text, HasSubstr("\033[32mok    \033[0mclient"));
}

TEST_F(Doctor, IsNeverWiderThanTheConsole) {
    std::filesystem::remove_all(FOLDER);
    for (const unsigned int width : {1U, 2U, 3U, 5U, 6U, 7U, 19U, 20U, 41U, 42U, 43U, 60U, 80U}) {
        m_console.width = width;
        for (const std::string& line : test::linesOf(printed()))
            EXPECT_LE(cli::cellsOf(line), width) << line;
    }
}

TEST_F(Doctor, AlignsTheLinesOfAText) {
    std::filesystem::remove_all(FOLDER);
    m_console.width = 60;
    EXPECT_THAT(printed(),
                HasSubstr("\nbad   control socket  the supplicant has no control socket:\n"
                          "                      there is no folder /run/wpa_supplicant\n"
                          "                      put\n"
                          "                      ctrl_interface=DIR=/run/wpa_supplicant\n"));
}

TEST_F(Doctor, PutsTheTextsBelowTheSubjectOnANarrowConsole) {
    m_console.width = 30;
    EXPECT_THAT(printed(), HasSubstr("\nok    control socket\n  /run/wpa_supplicant/wlan0\n"));
}

TEST_F(Doctor, EscapesWhatWouldControlTheTerminal) {
    m_request.iface = "\033[31m";
    EXPECT_THAT(printed(), HasSubstr("does not serve \\x1b[31m"));
}

TEST_F(Doctor, PrintsJson) {
    turnSavingOff();
    m_request.json = true;
    const Json all = Json::parse(printed());
    EXPECT_EQ(m_status, cli::FAILED);
    ASSERT_EQ(all.size(), 17U);
    EXPECT_EQ(all.at(7), Json({{"subject", "control socket"},
                               {"health", "good"},
                               {"found", "/run/wpa_supplicant/wlan0"},
                               {"toDo", ""}}));
    EXPECT_EQ(all.at(10).at("health"), "bad");
    EXPECT_EQ(all.at(10).at("toDo"),
              "put update_config=1 into the supplicant's configuration, then restart it");
}

TEST_F(Doctor, PrintsJsonOfBytesThatAreNoUtf8) {
    m_request.json = true;
    m_request.iface = "\xff";
    EXPECT_TRUE(Json::accept(printed()));
    EXPECT_EQ(m_status, cli::FAILED);
}

} // namespace
