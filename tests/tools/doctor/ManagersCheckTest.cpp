// The check for other programs that manage the interface.

#include "DoctorWorld.h"
#include "Findings.h"

#include <filesystem>

namespace {

using test::isBad;
using test::isGood;
using test::isNote;
using test::putFile;
using testing::AllOf;
using testing::HasSubstr;

constexpr const char* NETWORK_MANAGER = "8 /usr/sbin/NetworkManager --no-daemon\n";
constexpr const char* STATE = "/run/NetworkManager/devices/7"; // the index of wlan0

class ManagersCheck : public test::DoctorWorld {
protected:
    static void setManaged(const std::string& value) {
        putFile(STATE, "[device]\nmanaged=" + value + "\nroute-metric-default-aspired=600\n");
    }
};

TEST_F(ManagersCheck, FindsNone) {
    EXPECT_THAT(cli::checkManagers(""), isGood("no other program manages wlan0"));
}

TEST_F(ManagersCheck, ReportsThatNetworkManagerManagesTheInterface) {
    setProcesses(NETWORK_MANAGER);
    setManaged("true");
    for (const char* const iface : {"", "wlan0"}) {
        EXPECT_THAT(cli::checkManagers(iface),
                    isBad("NetworkManager manages wlan0, too",
                          AllOf(HasSubstr("nmcli device set wlan0 managed no"),
                                HasSubstr("\"After connecting\""))));
    }
}

TEST_F(ManagersCheck, AcceptsANetworkManagerThatIgnoresTheInterface) {
    setProcesses(NETWORK_MANAGER);
    setManaged("false");
    EXPECT_THAT(cli::checkManagers(""), isGood());
    putFile(STATE, "[device]\nnm-owned=false\n"); // its configuration excludes the interface
    EXPECT_THAT(cli::checkManagers(""), isGood());
    std::filesystem::remove(STATE);
    putFile("/run/NetworkManager/devices/2", "[device]\nmanaged=true\n");
    EXPECT_THAT(cli::checkManagers(""), isGood()) << "it has never managed the interface";
}

TEST_F(ManagersCheck, IgnoresWhatNetworkManagerHasLeftBehind) {
    setManaged("true");
    EXPECT_THAT(cli::checkManagers(""), isGood());
}

TEST_F(ManagersCheck, NotesANetworkManagerThatDoesNotShowWhatItManages) {
    setProcesses(NETWORK_MANAGER);
    EXPECT_THAT(cli::checkManagers(""),
                isNote(HasSubstr("does not show whether it manages wlan0")));
    putFile("/run/NetworkManager/devices/2", "[device]\nmanaged=true\n");
    std::filesystem::remove(SYSTEM_FOLDER + "/ifindex"); // the interface is not there now
    EXPECT_THAT(cli::checkManagers(""), isGood());
}

TEST_F(ManagersCheck, NotesManagersThatShowNoInterfaces) {
    setProcesses("8 /usr/libexec/iwd\n");
    EXPECT_THAT(cli::checkManagers(""),
                isNote(HasSubstr("iwd is running"), HasSubstr("systemctl disable --now iwd")));
    setProcesses("8 /usr/sbin/connmand -n\n");
    EXPECT_THAT(cli::checkManagers(""), isNote(HasSubstr("connmand is running"),
                                               HasSubstr("systemctl disable --now connman")));
}

TEST_F(ManagersCheck, NotesAConfigurationThatNetplanMakesAnew) {
    setProcesses("8 /sbin/wpa_supplicant -c /run/netplan/wpa-wlan0.conf -iwlan0 -Dnl80211,wext\n");
    EXPECT_THAT(cli::checkManagers(""),
                isNote(HasSubstr("/run/netplan/wpa-wlan0.conf anew"), HasSubstr("/etc/netplan")));
}

TEST_F(ManagersCheck, ReportsTheWorstOfSeveral) {
    setProcesses("8 /usr/libexec/iwd\n" + std::string(NETWORK_MANAGER) + "9 connmand\n");
    setManaged("true");
    EXPECT_THAT(cli::checkManagers(""), isBad(HasSubstr("NetworkManager")));
}

// It gives addresses, and connects to no network.
TEST_F(ManagersCheck, AcceptsSystemdNetworkd) {
    setProcesses("8 /lib/systemd/systemd-networkd\n");
    putFile("/run/systemd/netif/links/7", "ADMIN_STATE=configured\n");
    EXPECT_THAT(cli::checkManagers(""), isGood());
}

TEST_F(ManagersCheck, IgnoresProgramsThatOnlyHaveTheNameAmongTheirArguments) {
    setProcesses("8 editor iwd NetworkManager -c/run/netplan/x wpa_supplicant\n");
    setManaged("true");
    EXPECT_THAT(cli::checkManagers(""), isGood());
}

TEST_F(ManagersCheck, NeedsNoSupplicant) {
    std::filesystem::remove_all(FOLDER);
    setProcesses(NETWORK_MANAGER);
    setManaged("true");
    EXPECT_THAT(cli::checkManagers(""), isBad(HasSubstr("wlan0")));
}

} // namespace
