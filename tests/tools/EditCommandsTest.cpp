// The commands that edit networks: what they change in the supplicant, in which order, and that a failure
// is undone.

#include "CommandFixture.h"
#include "support/Checkpoint.h"

#include <fcntl.h>
#include <fstream>

using test::Arguments;
using test::Ending;
using test::platwifi;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

class EditCommands : public test::CommandFixture {
protected:
    // The supplicant gives a new network this id.
    void acceptNew(const std::string& ssid, const std::string& id = "1") {
        on({"add_network"}).prints(id + "\n");
        accept({"set_network", id, "ssid", '"' + ssid + '"'});
        accept({"enable_network", id});
    }
};

TEST_F(EditCommands, SaveOnceForSeveralEdits) {
    serve({"home"});
    EXPECT_EQ(
        outputOf(platwifi({"set", "home", "priority=5", "ssidBroadcasted=false", "key_mgmt=NONE"})),
        "home is saved.\n");
    EXPECT_THAT(changes(), ElementsAre("set_network 0 scan_ssid 1", "set_network 0 key_mgmt NONE",
                                       "set_network 0 priority 5", "save_config", "reconfigure"));
}

// TEXT-4
TEST_F(EditCommands, GiveTheClientAPlainSecret) {
    serve({"home"});
    EXPECT_EQ(outputOf(platwifi({"set", "home", "psk=-"}, "correct horse\n")), "home is saved.\n");
    EXPECT_THAT(changes(),
                ElementsAre("set_network 0 psk \"correct horse\"", "save_config", "reconfigure"));
}

TEST_F(EditCommands, ReadASecretFromAFile) {
    std::ofstream("/tmp/psk") << "correct horse\r\n";
    serve({"home"});
    platwifi({"set", "home", "psk=@/tmp/psk"});
    EXPECT_THAT(changes(), Contains("set_network 0 psk \"correct horse\""));
}

TEST_F(EditCommands, ReadALineForEachSecret) {
    serve({"work"});
    platwifi({"set", "work", "eapPassword=-", "privateKeyPassword=-"}, "first one\nsecond one\n");
    EXPECT_THAT(changes(), ElementsAre("set_network 0 password \"first one\"",
                                       "set_network 0 private_key_passwd \"second one\"",
                                       "save_config", "reconfigure"));
}

TEST_F(EditCommands, HaveNoSecretAmongTheirOwnArguments) {
    const test::Streams typed{test::fileWith("correct horse\n").release()};

    accept({"set_network", "0", "psk", "\"correct horse\""});
    test::Checkpoint saving("/tmp/saving");
    on({"save_config"}).pausesAt(saving.path()).prints("OK\n");
    serve({"home"});
    test::Program program({"set", "home", "psk=-"}, typed);
    saving.awaitArrival();
    std::ifstream own("/proc/" + std::to_string(program.id()) + "/cmdline");
    const std::string arguments{std::istreambuf_iterator<char>(own), {}};
    saving.letGo();
    EXPECT_THAT(arguments, HasSubstr("psk=-"));
    EXPECT_THAT(arguments, Not(HasSubstr("correct")));
    EXPECT_EQ(program.end().status, 0);
}

TEST_F(EditCommands, AddANetwork) {
    acceptNew("cafe");
    serve({"home"});
    EXPECT_EQ(outputOf(platwifi({"add", "cafe", "key_mgmt=NONE", "priority=2"})),
              "cafe is added.\n");
    EXPECT_THAT(changes(),
                ElementsAre("add_network", "set_network 1 ssid \"cafe\"", "enable_network 1",
                            "set_network 1 ssid \"cafe\"", "set_network 1 key_mgmt NONE",
                            "set_network 1 priority 2", "save_config", "reconfigure"));
}

TEST_F(EditCommands, AddANetworkOfAnyName) {
    for (const char* ssid : {"-x", "two words", "café", "咖啡店", "say \"hi\"", "$(reboot);`x`"}) {
        host.reset();
        acceptNew(ssid);
        serve({});
        EXPECT_EQ(platwifi({"add", "--", ssid, "key_mgmt=NONE"}).status, 0) << ssid;
        EXPECT_THAT(changes(), Contains("save_config"));
    }
}

TEST_F(EditCommands, RemoveANetwork) {
    accept({"remove_network", "1"});
    serve({"home", "work"});
    EXPECT_EQ(outputOf(platwifi({"remove", "work"})), "work is removed.\n");
    EXPECT_THAT(changes(), ElementsAre("remove_network 1", "save_config", "reconfigure"));
}

// "reconfigure" makes the supplicant read its file again.
TEST_F(EditCommands, AreUndoneIfTheyCannotBeSaved) {
    acceptNew("cafe");
    accept({"remove_network", "0"});
    on({"save_config"}).prints("FAIL\n");
    serve({"home"});
    const Arguments commands[] = {
        {"set", "home", "priority=5"}, {"add", "cafe", "key_mgmt=NONE"}, {"remove", "home"}};
    for (const Arguments& command : commands) {
        const Ending ending = platwifi(command);
        expectFailure(ending, "did not save its configuration, and nothing was changed");
        EXPECT_THAT(ending.err, HasSubstr("update_config=1"));
        EXPECT_EQ(changes().back(), "reconfigure");
    }
    EXPECT_EQ(callsOf({"save_config"}), 3u);
    EXPECT_EQ(callsOf({"reconfigure"}), 3u);
}

TEST_F(EditCommands, AreUndoneIfTheSupplicantDoesNotAddTheNetwork) {
    on({"add_network"}).prints("FAIL\n");
    serve({"home"});
    expectFailure(platwifi({"add", "cafe", "key_mgmt=NONE"}), "the supplicant did not add cafe");
    EXPECT_THAT(changes(), ElementsAre("add_network", "reconfigure"));
}

TEST_F(EditCommands, AreUndoneIfTheSupplicantDoesNotRemoveTheNetwork) {
    serve({"home"});
    expectFailure(platwifi({"remove", "home"}), "the supplicant did not remove home");
    EXPECT_THAT(changes(), ElementsAre("remove_network 0", "reconfigure"));
}

TEST_F(EditCommands, AreSavedEvenIfTheResultCannotBePrinted) {
    const platform::FileDescriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    serve({"home"});
    expectFailure(
        platwifi({"set", "home", "priority=5"}, test::Streams{test::CAPTURED, full.number()}),
        "the result cannot be written");
    EXPECT_THAT(changes(), Contains("save_config"));
}

TEST_F(EditCommands, DisconnectFromTheCurrentNetwork) {
    on({"status"}).prints("ssid=home\nid=0\nwpa_state=COMPLETED\n");
    serve({"home"});
    EXPECT_EQ(outputOf(platwifi({"disconnect"})), "Disconnected from home.\n");
    EXPECT_THAT(changes(), ElementsAre("disconnect"));
}

TEST_F(EditCommands, EnableAllNetworksToRoam) {
    serve({"home"});
    EXPECT_THAT(outputOf(platwifi({"roam"})), HasSubstr("the supplicant chooses among them"));
    EXPECT_THAT(changes(), ElementsAre("disconnect", "set_network 0 disabled 0", "reassociate"));
}

} // namespace
