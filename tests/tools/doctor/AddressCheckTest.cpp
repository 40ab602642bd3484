// The check of the address of the connected interface.

#include "DoctorWorld.h"
#include "Findings.h"

#include <cstdlib>
#include <sched.h>

namespace {

using cli::Finding;
using test::isBad;
using test::isGood;
using test::putFile;
using testing::_;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* NETWORKD = "8 /lib/systemd/systemd-networkd\n";
constexpr const char* NETWORKD_STATE = "/run/systemd/netif/links/7"; // the index of wlan0

class AddressCheck : public test::DoctorWorld {
protected:
    // Without the interfaces of the host, which may have a wlan0, or of another test. The process stays without: no
    // test uses those of the host.
    void SetUp() override {
        DoctorWorld::SetUp();
        if (unshare(CLONE_NEWNET) != 0)
            GTEST_SKIP() << "this system allows no network interfaces of a process's own";
    }
    void TearDown() override {
        unshare(CLONE_NEWNET);
        DoctorWorld::TearDown();
    }

    static void run(const char* command) { ASSERT_EQ(std::system(command), 0) << command; }

    static void addInterfaces() {
        run("ip link add wlan0 type veth peer name peer0 && ip link set wlan0 up && "
            "ip link set peer0 up");
    }

    Finding foundFor(const std::string& status, const std::string& processes = "1 init\n") {
        m_standIn.reset();
        m_standIn.on({"-iwlan0", "status"}).prints(status);
        m_standIn.on({"arg"}).prints(processes);
        return cli::checkAddress("");
    }

    Finding foundBeside(const std::string& processes) {
        return foundFor("bssid=02:00:00:00:01:00\nwpa_state=COMPLETED\n", processes);
    }
};

TEST_F(AddressCheck, ShowsTheAddress) {
    EXPECT_THAT(foundFor("wpa_state=COMPLETED\nip_address=192.0.2.7\n"), isGood("192.0.2.7"));
}

TEST_F(AddressCheck, NeedsNoAddressWithoutAConnection) {
    for (const char* const status :
         {"wpa_state=SCANNING\n", "wpa_state=DISCONNECTED\nip_address=192.0.2.7\n", "FAIL\n", ""})
        EXPECT_THAT(foundFor(status), isGood("wlan0 is not connected")) << status;
}

TEST_F(AddressCheck, ReportsAConnectionWithoutADhcpClient) {
    EXPECT_THAT(foundBeside("1 init\n7 editor dhcpcd\n"),
                isBad("wlan0 is connected, but has no address",
                      AllOf(HasSubstr("no DHCP client is running: start one"),
                            HasSubstr("\"After connecting\""))));
}

TEST_F(AddressCheck, NamesTheDhcpClientThatIsRunning) {
    const struct {
        const char* command;
        const char* name;
    } clients[] = {{"/usr/sbin/dhcpcd -q", "dhcpcd"},
                   {"dhcpcd: [manager] [ip4] [ip6]", "dhcpcd"},
                   {"/sbin/dhclient wlan0", "dhclient"},
                   {"udhcpc -i wlan0", "udhcpc"},
                   {"/lib/systemd/systemd-networkd", "systemd-networkd"},
                   {"/usr/sbin/NetworkManager --no-daemon", "NetworkManager"},
                   {"/usr/sbin/connmand -n", "connmand"}};
    for (const auto& client : clients) {
        EXPECT_THAT(foundBeside(std::string("9 ") + client.command + "\n"),
                    isBad(_, HasSubstr(client.name + std::string(" is running: wait"))))
            << client.command;
    }
}

TEST_F(AddressCheck, SaysThatSystemdNetworkdIgnoresTheInterface) {
    putFile(NETWORKD_STATE, "ADMIN_STATE=configuring\nOPER_STATE=carrier\n");
    EXPECT_THAT(foundBeside(NETWORKD), isBad(_, HasSubstr("systemd-networkd is running: wait")));
    putFile(NETWORKD_STATE, "# private\nADMIN_STATE=unmanaged\nOPER_STATE=carrier\n");
    EXPECT_THAT(foundBeside(NETWORKD), isBad(_, HasSubstr("no .network file for wlan0")));
    EXPECT_THAT(foundBeside(std::string(NETWORKD) + "9 dhcpcd\n"),
                isBad(_, AllOf(HasSubstr("dhcpcd is running"), Not(HasSubstr("networkd")))));
}

TEST_F(AddressCheck, ReportsAnAddressThatNoServerHasGiven) {
    EXPECT_THAT(foundFor("wpa_state=COMPLETED\nip_address=169.254.3.4\n"),
                isBad(HasSubstr("no DHCP server has answered")));
}

// wlan0 has an address of its link from the start.
TEST_F(AddressCheck, AcceptsAnIpv6AddressThatIsValidBeyondTheLink) {
    addInterfaces();
    EXPECT_THAT(foundBeside("1 init\n"), isBad());
    run("ip address add 2001:db8::7/64 dev wlan0 nodad");
    EXPECT_THAT(foundBeside("1 init\n"), isGood("an IPv6 address"));
}

TEST_F(AddressCheck, IgnoresTheIpv6AddressOfAnotherInterface) {
    addInterfaces();
    run("ip address add 2001:db8::8/64 dev peer0 nodad");
    EXPECT_THAT(foundBeside("1 init\n"), isBad());
}

TEST_F(AddressCheck, AcceptsAPartOfABridge) {
    putFile(SYSTEM_FOLDER + "/master/uevent", "DEVTYPE=bridge\nINTERFACE=br0\nIFINDEX=9\n");
    EXPECT_THAT(foundBeside("1 init\n"), isGood("wlan0 is a part of br0"));
}

} // namespace
