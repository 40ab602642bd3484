// The check of the permissions of the supplicant's configuration file.

#include "DoctorWorld.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace {

using cli::Finding;
using cli::Health;
using std::filesystem::perms;
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
        const Finding finding =
            foundFor("1 init\n7 /usr/sbin/wpa_supplicant -B " + option + " -iwlan0\n");
        EXPECT_EQ(finding.health, Health::NOTE) << option;
        EXPECT_THAT(finding.found, HasSubstr(m_file));
        EXPECT_THAT(finding.toDo, HasSubstr("chmod 600 " + m_file));
    }
}

TEST_F(ConfigurationCheck, AcceptsAFileThatIsClosedToOthers) {
    write(perms::owner_read | perms::owner_write | perms::group_read);
    const Finding finding = foundFor("7 wpa_supplicant -c " + m_file + "\n");
    EXPECT_EQ(finding.health, Health::GOOD);
    EXPECT_THAT(finding.found, HasSubstr(m_file));
}

TEST_F(ConfigurationCheck, IgnoresTheArgumentsOfAnotherProgram) {
    write(perms::all);
    EXPECT_EQ(foundFor("7 editor wpa_supplicant -c " + m_file + "\n").health, Health::GOOD);
}

TEST_F(ConfigurationCheck, AcceptsAFileThatIsMissingOrNotNamed) {
    for (const char* const arguments :
         {"-c /no/such/file", "-c", "-c relative.conf", "-iwlan0", ""})
        EXPECT_EQ(foundFor(std::string("7 wpa_supplicant ") + arguments + "\n").health,
                  Health::GOOD)
            << arguments;
}

} // namespace
