// The check of the control socket, with real sockets in a private mount namespace.

#include "DoctorWorld.h"
#include "checks/ControlSocket.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using cli::Finding;
using cli::Health;
using testing::HasSubstr;

constexpr gid_t DAEMON = 1; // the id of the group "daemon" on every Debian system
constexpr const char* NOT_ROOT = "only root can become another user";

class SocketChecks : public test::DoctorWorld {
protected:
    static Finding asOrdinaryUser() {
        const test::OrdinaryUser user;
        return user ? cli::checkControlSocket("") : Finding{NOT_ROOT, Health::GOOD, "", ""};
    }
};

TEST_F(SocketChecks, AcceptASocketThatASupplicantListensAt) {
    for (const char* const iface : {"", "wlan0"}) {
        const Finding finding = cli::checkControlSocket(iface);
        EXPECT_EQ(finding.health, Health::GOOD);
        EXPECT_EQ(finding.found, SOCKET);
    }
}

TEST_F(SocketChecks, ReportAMissingFolder) {
    std::filesystem::remove_all(FOLDER);
    const Finding finding = cli::checkControlSocket("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_THAT(finding.found, HasSubstr("there is no folder " + FOLDER));
    EXPECT_THAT(finding.toDo, HasSubstr("put ctrl_interface=DIR=/run/wpa_supplicant GROUP=netdev"));
}

TEST_F(SocketChecks, ReportAFolderWithoutASocket) {
    std::filesystem::remove(SOCKET);
    const Finding finding = cli::checkControlSocket("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "there is no control socket in " + FOLDER);
}

TEST_F(SocketChecks, IgnoreASocketForWifiDirect) {
    std::filesystem::remove(SOCKET);
    const test::ListeningSocket direct(FOLDER + "/p2p-dev-wlan0");
    EXPECT_EQ(cli::checkControlSocket("").found, "there is no control socket in " + FOLDER);
}

TEST_F(SocketChecks, ReportAMissingSocketOfTheInterface) {
    const Finding finding = cli::checkControlSocket("wlan1");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found,
              "the supplicant does not serve wlan1: there is no " + FOLDER + "/wlan1");
}

TEST_F(SocketChecks, ReportASocketThatNoProcessListensAt) {
    m_socket.reset();
    const Finding finding = cli::checkControlSocket("wlan0");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found,
              "no process listens at " + SOCKET + ", which a dead supplicant has left behind");
    EXPECT_THAT(finding.toDo, HasSubstr("rm " + SOCKET));
}

TEST_F(SocketChecks, ReportADeadSocketThatTheClientTakesFirst) {
    std::optional<test::ListeningSocket> other(FOLDER + "/wlan1");
    const bool isOther = cli::interfaceFor("") == "wlan1";
    (isOther ? other : m_socket).reset();
    const Finding finding = cli::checkControlSocket(isOther ? "wlan0" : "wlan1");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_THAT(finding.found,
                HasSubstr("no process listens at " + FOLDER + (isOther ? "/wlan1" : "/wlan0")));
}

TEST_F(SocketChecks, IgnoreADeadSocketThatTheClientDoesNotTake) {
    std::optional<test::ListeningSocket> other(FOLDER + "/wlan1");
    const bool isOther = cli::interfaceFor("") == "wlan1";
    (isOther ? m_socket : other).reset();
    EXPECT_EQ(cli::checkControlSocket("").health, Health::GOOD);
}

TEST_F(SocketChecks, ReportANameThatIsTooLongForASocket) {
    EXPECT_EQ(cli::checkControlSocket(std::string(200, 'w')).health, Health::BAD);
}

TEST_F(SocketChecks, NameTheGroupThatMayUseTheFolder) {
    if (asOrdinaryUser().subject == NOT_ROOT)
        GTEST_SKIP() << NOT_ROOT;
    EXPECT_EQ(chown(FOLDER.c_str(), 0, DAEMON), 0);
    chmod(FOLDER.c_str(), 0750);
    const Finding finding = asOrdinaryUser();
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, FOLDER + " is closed to all but root and the group daemon");
    EXPECT_THAT(finding.toDo, HasSubstr("usermod -aG daemon nobody"));
    EXPECT_THAT(finding.toDo, HasSubstr("or run platwifi as root"));
}

TEST_F(SocketChecks, NameTheGroupThatMayUseTheSocket) {
    if (asOrdinaryUser().subject == NOT_ROOT)
        GTEST_SKIP() << NOT_ROOT;
    EXPECT_EQ(chown(SOCKET.c_str(), 0, DAEMON), 0);
    chmod(SOCKET.c_str(), 0770);
    const Finding finding = asOrdinaryUser();
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, SOCKET + " is closed to all but root and the group daemon");
}

TEST_F(SocketChecks, NameNoGroupWhereOnlyRootMayUseTheFolder) {
    if (asOrdinaryUser().subject == NOT_ROOT)
        GTEST_SKIP() << NOT_ROOT;
    chmod(FOLDER.c_str(), 0750);
    const Finding finding = asOrdinaryUser();
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, FOLDER + " is closed to all but root");
    EXPECT_THAT(finding.toDo, HasSubstr("GROUP=netdev"));
}

TEST_F(SocketChecks, AcceptASocketThatIsOpenToAnOrdinaryUser) {
    chmod(FOLDER.c_str(), 0755);
    chmod(SOCKET.c_str(), 0777);
    const Finding finding = asOrdinaryUser();
    if (finding.subject == NOT_ROOT)
        GTEST_SKIP() << NOT_ROOT;
    EXPECT_EQ(finding.health, Health::GOOD);
}

} // namespace
