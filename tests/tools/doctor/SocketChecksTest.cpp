// The check of the control socket, with real sockets in a private mount namespace.

#include "DoctorWorld.h"
#include "Findings.h"
#include "client/ControlSocket.h"

#include <filesystem>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using cli::Finding;
using test::isBad;
using test::isGood;
using testing::AllOf;
using testing::HasSubstr;

constexpr gid_t DAEMON = 1; // the id of the group "daemon" on every Debian system

class SocketChecks : public test::DoctorWorld {};

/// Of root's socket, as another user.
class SocketChecksOfAnOrdinaryUser : public SocketChecks {
protected:
    void SetUp() override {
        SocketChecks::SetUp();
        if (!test::OrdinaryUser())
            GTEST_SKIP() << "only root can become another user";
    }

    static Finding finding() {
        const test::OrdinaryUser user;
        return cli::checkControlSocket("");
    }
};

TEST_F(SocketChecks, AcceptASocketThatASupplicantListensAt) {
    for (const char* const iface : {"", "wlan0"}) {
        EXPECT_THAT(cli::checkControlSocket(iface), isGood(SOCKET));
    }
}

TEST_F(SocketChecks, ReportAMissingFolder) {
    std::filesystem::remove_all(FOLDER);
    EXPECT_THAT(cli::checkControlSocket(""),
                isBad(HasSubstr("there is no folder " + FOLDER),
                      HasSubstr("put ctrl_interface=DIR=/run/wpa_supplicant GROUP=netdev")));
}

TEST_F(SocketChecks, ReportAFolderWithoutASocket) {
    std::filesystem::remove(SOCKET);
    EXPECT_THAT(cli::checkControlSocket(""), isBad("there is no control socket in " + FOLDER));
}

TEST_F(SocketChecks, IgnoreASocketForWifiDirect) {
    std::filesystem::remove(SOCKET);
    const test::ListeningSocket direct(FOLDER + "/p2p-dev-wlan0");
    EXPECT_EQ(cli::checkControlSocket("").found, "there is no control socket in " + FOLDER);
}

TEST_F(SocketChecks, ReportAMissingSocketOfTheInterface) {
    EXPECT_THAT(cli::checkControlSocket("wlan1"),
                isBad("the supplicant does not serve wlan1: there is no " + FOLDER + "/wlan1"));
}

TEST_F(SocketChecks, ReportASocketThatNoProcessListensAt) {
    m_socket.reset();
    EXPECT_THAT(
        cli::checkControlSocket("wlan0"),
        isBad("no process listens at " + SOCKET + ", which a dead supplicant has left behind",
              HasSubstr("rm " + SOCKET)));
}

TEST_F(SocketChecks, ReportADeadSocketThatTheClientTakesFirst) {
    std::optional<test::ListeningSocket> other(FOLDER + "/wlan1");
    const bool isOther = cli::interfaceFor("") == "wlan1";
    (isOther ? other : m_socket).reset();
    EXPECT_THAT(
        cli::checkControlSocket(isOther ? "wlan0" : "wlan1"),
        isBad(HasSubstr("no process listens at " + FOLDER + (isOther ? "/wlan1" : "/wlan0"))));
}

TEST_F(SocketChecks, IgnoreADeadSocketThatTheClientDoesNotTake) {
    std::optional<test::ListeningSocket> other(FOLDER + "/wlan1");
    const bool isOther = cli::interfaceFor("") == "wlan1";
    (isOther ? m_socket : other).reset();
    EXPECT_THAT(cli::checkControlSocket(""), isGood());
}

TEST_F(SocketChecks, ReportANameThatIsTooLongForASocket) {
    EXPECT_THAT(cli::checkControlSocket(std::string(200, 'w')), isBad());
}

TEST_F(SocketChecksOfAnOrdinaryUser, NameTheGroupThatMayUseTheFolder) {
    EXPECT_EQ(chown(FOLDER.c_str(), 0, DAEMON), 0);
    chmod(FOLDER.c_str(), 0750);
    EXPECT_THAT(finding(), isBad(FOLDER + " is closed to all but root and the group daemon",
                                 AllOf(HasSubstr(std::string("usermod -aG daemon ") +
                                                 getpwuid(65534)->pw_name),
                                       HasSubstr("or run platwifi as root"))));
}

TEST_F(SocketChecksOfAnOrdinaryUser, NameTheGroupThatMayUseTheSocket) {
    EXPECT_EQ(chown(SOCKET.c_str(), 0, DAEMON), 0);
    chmod(SOCKET.c_str(), 0770);
    EXPECT_THAT(finding(), isBad(SOCKET + " is closed to all but root and the group daemon"));
}

TEST_F(SocketChecksOfAnOrdinaryUser, NameNoGroupWhereOnlyRootMayUseTheFolder) {
    chmod(FOLDER.c_str(), 0750);
    EXPECT_THAT(finding(), isBad(FOLDER + " is closed to all but root", HasSubstr("GROUP=netdev")));
}

TEST_F(SocketChecksOfAnOrdinaryUser, AcceptASocketThatIsOpenToTheUser) {
    chmod(FOLDER.c_str(), 0755);
    chmod(SOCKET.c_str(), 0777);
    EXPECT_THAT(finding(), isGood());
}

} // namespace
