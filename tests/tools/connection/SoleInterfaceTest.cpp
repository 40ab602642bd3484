// When the supplicant need not be asked which interfaces it serves: where one control socket stands alone.

#include "CommandFixture.h"

#include "../monitor/EventServer.h"

#include <fstream>

using test::EventServer;
using test::platwifi;
using testing::ElementsAre;

namespace {

const char* const LIST = "-iwlan0 list_networks";
const char* const STATUS = "-iwlan0 status";

class SoleInterface : public test::CommandFixture {
protected:
    SoleInterface() { serve({"home"}); }

    static void showStatus() { EXPECT_NE(outputOf(platwifi({"status"})), ""); }

    EventServer socket;
};

TEST_F(SoleInterface, IsNotAskedFor) {
    showStatus();
    EXPECT_THAT(commands(), ElementsAre(LIST, STATUS));
}

TEST_F(SoleInterface, MayBeNamed) {
    EXPECT_NE(outputOf(platwifi({"status", "-i", "wlan0"})), "");
    EXPECT_THAT(commands(), ElementsAre(LIST, STATUS));
}

TEST_F(SoleInterface, IsAskedForBesideAnotherSocket) {
    std::ofstream(EventServer::FOLDER + "/wlan1");
    showStatus();
    EXPECT_THAT(commands(), ElementsAre("interface", LIST, STATUS));
}

TEST_F(SoleInterface, IsAskedForIfNoProcessListens) {
    socket.die();
    showStatus();
    EXPECT_THAT(commands(), ElementsAre("interface", LIST, STATUS));
}

TEST_F(SoleInterface, IsAskedForIfAnotherOneIsNamed) {
    expectFailure(platwifi({"status", "-i", "wlan1"}), "the supplicant does not serve wlan1");
    EXPECT_THAT(commands(), ElementsAre("interface"));
}

TEST_F(SoleInterface, IsListedByTheSupplicant) {
    EXPECT_EQ(outputOf(platwifi({"adapters"})), "wlan0\n");
    EXPECT_THAT(commands(), ElementsAre("interface"));
}

} // namespace
