// The command forget: the network is removed for good, and the connection to another one stays.

#include "CommandFixture.h"

using test::platwifi;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string ON_HOME = "ssid=home\nid=0\nwpa_state=COMPLETED\n";

class Forget : public test::CommandFixture {
protected:
    void prepare() {
        on({"status"}).prints(ON_HOME);
        accept({"disconnect"});
        for (const char* const id : {"0", "1"})
            accept({"remove_network", id});
        serve({"home", "work"});
    }
};

TEST_F(Forget, EndsTheConnectionToTheCurrentNetwork) {
    prepare();
    EXPECT_EQ(outputOf(platwifi({"forget", "home"})), "home is forgotten.\n");
    EXPECT_THAT(changes(),
                ElementsAre("disconnect", "remove_network 0", "save_config", "reassociate"));
}

// The supplicant would disconnect if it read its file again.
TEST_F(Forget, LeavesTheConnectionToAnotherNetwork) {
    prepare();
    EXPECT_EQ(outputOf(platwifi({"forget", "work", "--json"})),
              "{\n  \"ssid\": \"work\",\n  \"done\": \"forgotten\"\n}\n");
    EXPECT_THAT(changes(), ElementsAre("remove_network 1", "save_config"));
}

TEST_F(Forget, TakesTheRemovalBackIfItCannotBeSaved) {
    on({"save_config"}).prints("FAIL\n");
    prepare();
    expectFailure(platwifi({"forget", "home"}), "and nothing was changed; see");
    EXPECT_THAT(changes(), ElementsAre("disconnect", "remove_network 0", "save_config",
                                       "reconfigure", "reassociate"));
}

TEST_F(Forget, TakesBackARemovalThatTheSupplicantRefuses) {
    on({"remove_network", "1"}).prints("FAIL\n");
    prepare();
    expectFailure(platwifi({"forget", "work"}), "the supplicant did not remove work");
    EXPECT_THAT(changes(), ElementsAre("remove_network 1", "reconfigure", "reassociate"));
}

TEST_F(Forget, NamesAnUnknownNetwork) {
    prepare();
    expectFailure(platwifi({"forget", "cafe"}), "there is no network cafe; platwifi networks");
    EXPECT_THAT(changes(), IsEmpty());
}

} // namespace
