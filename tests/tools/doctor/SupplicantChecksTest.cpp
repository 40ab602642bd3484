// The checks of what the supplicant answers.

#include "DoctorWorld.h"

#include <gmock/gmock.h>

namespace {

using cli::Finding;
using cli::Health;
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
    EXPECT_EQ(cli::checkReply("").health, Health::GOOD);
    EXPECT_EQ(cli::checkReply("wlan0").found, "comes for wlan0");
}

TEST_F(SupplicantChecks, ReportAMissingReply) {
    onPing().exits(1);
    const Finding finding = cli::checkReply("");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "the supplicant does not answer for wlan0");
    EXPECT_THAT(finding.toDo, HasSubstr("kill -CONT"));
}

TEST_F(SupplicantChecks, ShowTheErrorMessageOfTheClient) {
    onPing().printsError("Failed to connect\nmore\n").exits(255);
    EXPECT_EQ(cli::checkReply("").found, "the supplicant does not answer for wlan0: Failed to "
                                         "connect");
}

TEST_F(SupplicantChecks, ListTheInterfaces) {
    const Finding finding = interfacesAre("wlan0\nwlan1\n", "");
    EXPECT_EQ(finding.health, Health::GOOD);
    EXPECT_EQ(finding.found, "wlan0, wlan1");
}

TEST_F(SupplicantChecks, ReportThatNoInterfaceIsListed) {
    const Finding finding = interfacesAre("", "");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "the supplicant lists no interface");
}

TEST_F(SupplicantChecks, ReportAnInterfaceForWifiDirectListedFirst) {
    const Finding finding = interfacesAre("p2p-dev-wlan0\nwlan0\n", "");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_THAT(finding.found, HasSubstr("lists p2p-dev-wlan0 first"));
    EXPECT_THAT(finding.toDo, HasSubstr("p2p_disabled=1"));
}

TEST_F(SupplicantChecks, AcceptAnInterfaceForWifiDirectListedLater) {
    EXPECT_EQ(interfacesAre("wlan0\np2p-dev-wlan0\n", "").health, Health::GOOD);
}

TEST_F(SupplicantChecks, ReportAnInterfaceThatIsNotListed) {
    const Finding finding = interfacesAre("wlan0\nwlan1\n", "wlan2");
    EXPECT_EQ(finding.health, Health::BAD);
    EXPECT_EQ(finding.found, "the supplicant does not serve wlan2");
    EXPECT_THAT(finding.toDo, HasSubstr("wlan0, wlan1"));
}

TEST_F(SupplicantChecks, NoteAnInterfaceThatIsNotTheFirst) {
    const Finding finding = interfacesAre("wlan0\nwlan1\n", "wlan1");
    EXPECT_EQ(finding.health, Health::NOTE);
    EXPECT_EQ(finding.found, "the networks are those of wlan0, which is listed before wlan1");
}

TEST_F(SupplicantChecks, ShowWhetherChangesCanBeSaved) {
    EXPECT_EQ(replyIs("1").health, Health::GOOD);
    EXPECT_EQ(replyIs("12:34:56.789: 1\n").health, Health::GOOD);
    EXPECT_EQ(replyIs("0").health, Health::BAD);
    EXPECT_EQ(replyIs("12:34:56.789: 0\n").health, Health::BAD);
    EXPECT_EQ(replyIs("0").found, "is off: nothing can be saved");
    EXPECT_THAT(replyIs("0").toDo, HasSubstr("update_config=1"));
}

TEST_F(SupplicantChecks, NoteThatTheSupplicantDoesNotSayWhetherItSaves) {
    for (const char* const reply : {"FAIL\n", "UNKNOWN COMMAND\n", ""}) {
        const Finding finding = replyIs(reply);
        EXPECT_EQ(finding.health, Health::NOTE) << reply;
        EXPECT_THAT(finding.toDo, HasSubstr("update_config=1")) << reply;
    }
}

} // namespace
