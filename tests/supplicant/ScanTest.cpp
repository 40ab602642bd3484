// A scan with the wired driver: it is accepted, takes no time and finds nothing.

#include "SupplicantTest.h"

using test::openNetworks;
using test::resultFiles;
using test::WLAN;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr const char* RESULT = "/tmp/wpa_cli_scan_result_";

class Scan : public test::SupplicantTest {
protected:
    // The client's reply to the scan.
    static test::Lines reply() {
        EXPECT_THAT(resultFiles(), ElementsAre(StartsWith(RESULT)));
        return test::linesOfFile(resultFiles().at(0));
    }
};

TEST_F(Scan, IsStartedWhileNothingIsConnected) {
    supplicant.start();
    EXPECT_TRUE(util().scanNetworks(WLAN));
    EXPECT_THAT(reply(), ElementsAre("OK"));
}

TEST_F(Scan, IsStartedWhileConnected) {
    startConnected();
    EXPECT_TRUE(util().scanNetworks(WLAN));
    EXPECT_THAT(reply(), ElementsAre("OK"));
}

// The supplicant refuses a scan while it waits for the other side of a handshake.
// SCAN-3
TEST_F(Scan, SucceedsIfTheSupplicantRefusesIt) {
    supplicant.start("network={\n\tssid=\"home\"\n\tpsk=\"12345678\"\n}\n");
    supplicant.awaitStatus("wpa_state=ASSOCIATED");
    EXPECT_TRUE(util().scanNetworks(WLAN));
    EXPECT_THAT(reply(), ElementsAre("FAIL-BUSY"));
}

TEST_F(Scan, FindsNothing) {
    supplicant.start();
    EXPECT_THAT(supplicant.ask("scan_results"), testing::SizeIs(1)) << "the header only";
    EXPECT_THAT(list(&WifiUtil::discoverNetworks), IsEmpty());
}

TEST_F(Scan, FailsWithoutASupplicant) {
    EXPECT_FALSE(util().scanNetworks(WLAN));
    EXPECT_THAT(resultFiles(), IsEmpty());
}

} // namespace
