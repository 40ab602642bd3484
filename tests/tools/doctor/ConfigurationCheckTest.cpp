// The check of the permissions of the supplicant's configuration file.

#include "DoctorWorld.h"
#include "Findings.h"

#include <filesystem>
#include <fstream>

namespace {

using cli::Finding;
using std::filesystem::perms;
using test::isGood;
using test::isNote;
using testing::HasSubstr;

class ConfigurationCheck : public test::DoctorWorld {
protected:
    const std::string m_file = m_standIn.folder() + "/supplicant.conf";

    void write(perms rights) const {
        std::ofstream(m_file) << "network={}\n";
        std::filesystem::permissions(m_file, rights);
    }

    Finding foundFor(const std::string& processes) {
        m_standIn.reset();
        m_standIn.on({"arg"}).prints(processes);
        answer();
        return cli::checkConfiguration("");
    }
};

TEST_F(ConfigurationCheck, NotesAFileThatAllUsersCanRead) {
    write(perms::owner_read | perms::group_read | perms::others_read);
    for (const std::string& option : {"-c " + m_file, "-c" + m_file}) {
        EXPECT_THAT(foundFor("1 init\n7 /usr/sbin/wpa_supplicant -B " + option + " -iwlan0\n"),
                    isNote(HasSubstr(m_file), HasSubstr("chmod 600 " + m_file)))
            << option;
    }
}

TEST_F(ConfigurationCheck, AcceptsAFileThatIsClosedToOthers) {
    write(perms::owner_read | perms::owner_write | perms::group_read);
    EXPECT_THAT(foundFor("7 wpa_supplicant -c " + m_file + "\n"), isGood(HasSubstr(m_file)));
}

// The first supplicant serves D-Bus alone, the second one another interface.
TEST_F(ConfigurationCheck, ExaminesTheFileOfTheSupplicantThatServesTheInterface) {
    write(perms::all);
    EXPECT_THAT(foundFor("7 wpa_supplicant -u -s\n8 wpa_supplicant -c/etc/passwd -i wlan7\n"
                         "9 wpa_supplicant -i wlan0 -c " +
                         m_file + "\n"),
                isNote(HasSubstr(m_file)));
    EXPECT_THAT(foundFor("7 wpa_supplicant -u -s\n8 wpa_supplicant -c " + m_file + "\n"),
                isNote(HasSubstr(m_file)));
}

TEST_F(ConfigurationCheck, IgnoresTheArgumentsOfAnotherProgram) {
    write(perms::all);
    EXPECT_THAT(foundFor("7 editor wpa_supplicant -c " + m_file + "\n"), isGood());
}

TEST_F(ConfigurationCheck, AcceptsAFileThatIsMissingOrNotNamed) {
    for (const char* const arguments :
         {"-c /no/such/file", "-c", "-c relative.conf", "-iwlan0", ""})
        EXPECT_THAT(foundFor(std::string("7 wpa_supplicant ") + arguments + "\n"), isGood())
            << arguments;
}

} // namespace
