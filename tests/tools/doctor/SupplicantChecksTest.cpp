// The checks of what the supplicant answers.

#include "DoctorWorld.h"
#include "Findings.h"

namespace {

using cli::Finding;
using test::isBad;
using test::isGood;
using test::isNote;
using testing::_;
using testing::HasSubstr;

constexpr const char* HEADER = "Selected interface 'wlan0'\nAvailable interfaces:\n";

class SupplicantChecks : public test::DoctorWorld {
protected:
    void SetUp() override {
        DoctorWorld::SetUp();
        m_standIn.reset();
    }

    test::StandIn::Answer onPing() { return m_standIn.on({"-iwlan0", "ping"}); }

    Finding interfacesAre(const std::string& list, const std::string& iface) {
        m_standIn.on({"interface"}).prints(HEADER + list);
        return cli::checkInterface(iface);
    }

    Finding replyIs(const std::string& reply) {
        m_standIn.reset();
        m_standIn.on({"-iwlan0", "get", "update_config"}).prints(reply);
        return cli::checkSaving("");
    }
};

TEST_F(SupplicantChecks, AcceptAReply) {
    onPing().prints("12:34:56.789: PONG\n");
    EXPECT_THAT(cli::checkReply(""), isGood());
    EXPECT_THAT(cli::checkReply("wlan0"), isGood("comes for wlan0"));
}

TEST_F(SupplicantChecks, ReportAMissingReply) {
    onPing().exits(1);
    EXPECT_THAT(cli::checkReply(""),
                isBad("the supplicant does not answer for wlan0", HasSubstr("kill -CONT")));
}

TEST_F(SupplicantChecks, ShowTheErrorMessageOfTheClient) {
    onPing().printsError("Failed to connect\nmore\n").exits(255);
    EXPECT_THAT(cli::checkReply(""),
                isBad("the supplicant does not answer for wlan0: Failed to connect"));
}

TEST_F(SupplicantChecks, ListTheInterfaces) {
    EXPECT_THAT(interfacesAre("wlan0\nwlan1\n", ""), isGood("wlan0, wlan1"));
}

TEST_F(SupplicantChecks, ReportThatNoInterfaceIsListed) {
    EXPECT_THAT(interfacesAre("", ""), isBad("the supplicant lists no interface"));
}

TEST_F(SupplicantChecks, ReportAnInterfaceForWifiDirectListedFirst) {
    setProfile("device");
    EXPECT_THAT(interfacesAre("p2p-dev-wlan0\nwlan0\n", ""),
                isBad(HasSubstr("lists p2p-dev-wlan0 first"), HasSubstr("p2p_disabled=1")));
}

TEST_F(SupplicantChecks, AcceptAnInterfaceForWifiDirectListedLater) {
    setProfile("device");
    EXPECT_THAT(interfacesAre("wlan0\np2p-dev-wlan0\n", ""), isGood());
}

// The profile skips such interfaces.
TEST_F(SupplicantChecks, AcceptAnInterfaceForWifiDirectListedFirstUnderModern) {
    EXPECT_THAT(interfacesAre("p2p-dev-wlan0\nwlan0\n", ""), isGood());
    EXPECT_THAT(cli::checkInterface("wlan0"), isGood());
}

TEST_F(SupplicantChecks, ReportThatOnlyAnInterfaceForWifiDirectIsListed) {
    EXPECT_THAT(interfacesAre("p2p-dev-wlan0\n", ""),
                isBad(HasSubstr("lists p2p-dev-wlan0 alone"), HasSubstr("p2p_disabled=1")));
}

TEST_F(SupplicantChecks, ReportANameThatIsTooLongForTheProfile) {
    const std::string usb =
        "wlx00c0caabcdef"; // 15 characters, as the system names an adapter at USB
    EXPECT_THAT(interfacesAre(usb + "\n", ""), isGood(usb));
    setProfile("device");
    for (const std::string& iface : {std::string(), usb}) {
        EXPECT_THAT(cli::checkInterface(iface),
                    isBad("the name " + usb + " has 15 characters; the profile in use allows 13",
                          HasSubstr("unset PLATWIFI_PROFILE")));
    }
    m_standIn.reset();
    EXPECT_THAT(interfacesAre("wlx0123456789\n", ""), isGood()) << "13 characters";
}

TEST_F(SupplicantChecks, ReportAnInterfaceThatIsNotListed) {
    EXPECT_THAT(interfacesAre("wlan0\nwlan1\n", "wlan2"),
                isBad("the supplicant does not serve wlan2", HasSubstr("wlan0, wlan1")));
}

TEST_F(SupplicantChecks, NoteAnInterfaceThatIsNotTheFirst) {
    EXPECT_THAT(interfacesAre("wlan0\nwlan1\n", "wlan1"),
                isNote("the networks are those of wlan0, which is listed before wlan1"));
}

TEST_F(SupplicantChecks, ShowWhetherChangesCanBeSaved) {
    for (const char* const reply : {"1", "12:34:56.789: 1\n"})
        EXPECT_THAT(replyIs(reply), isGood());
    for (const char* const reply : {"0", "12:34:56.789: 0\n"})
        EXPECT_THAT(replyIs(reply),
                    isBad("is off: nothing can be saved", HasSubstr("update_config=1")));
}

TEST_F(SupplicantChecks, NoteThatTheSupplicantDoesNotSayWhetherItSaves) {
    for (const char* const reply : {"FAIL\n", "UNKNOWN COMMAND\n", ""}) {
        EXPECT_THAT(replyIs(reply), isNote(_, HasSubstr("update_config=1"))) << reply;
    }
}

} // namespace
