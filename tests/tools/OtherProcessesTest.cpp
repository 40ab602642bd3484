// Other processes with the library reload after a save of the command line.

#include "CommandFixture.h"
#include "support/Checkpoint.h"
#include "unit/watchdog/BlockView.h"
#include "unit/watchdog/Peer.h"

#include <csignal>
#include <filesystem>
#include <thread>

using test::platwifi;

// After a save the program executes itself to notify other processes.
#ifdef TEST_EMULATOR
#define SKIP_IN_EMULATOR() GTEST_SKIP() << "an emulated program cannot execute itself"
#else
#define SKIP_IN_EMULATOR() static_cast<void>(0)
#endif

namespace {

class OtherProcesses : public test::CommandFixture {
protected:
    static bool hasName() { return std::filesystem::exists(test::BLOCK_PATH); }

    std::size_t loads() const { return callsOf({"list_networks"}); }

    void awaitLoads(std::size_t times) const {
        while (loads() < times)
            std::this_thread::yield();
    }

    static void edit(const char* priority) {
        EXPECT_EQ(outputOf(platwifi({"set", "home", std::string("priority=") + priority})),
                  "home is saved.\n");
    }
};

TEST_F(OtherProcesses, ReloadAfterEachSave) {
    SKIP_IN_EMULATOR();
    serve({"home"});
    test::Peer peer;
    ASSERT_EQ(peer.ask("has home"), "yes");
    for (const char* priority : {"5", "6"}) {
        const std::size_t before = loads();
        edit(priority);
        awaitLoads(before + 3); // two are the command's own
        EXPECT_TRUE(hasName()) << "a process that joins later must find the block";
    }
    EXPECT_EQ(peer.ask("has home"), "yes");
}

TEST_F(OtherProcesses, KeepTheNameOfTheBlockAfterAReport) {
    serve({"home"});
    test::Peer peer;
    ASSERT_EQ(peer.ask("has home"), "yes");
    EXPECT_EQ(platwifi({"networks"}).status, 0);
    EXPECT_EQ(platwifi({"set", "home", "index=9"}).status, 2);
    EXPECT_TRUE(hasName());
}

TEST_F(OtherProcesses, ReloadAfterASaveWhoseResultCannotBePrinted) {
    SKIP_IN_EMULATOR();
    serve({"home"});
    test::Peer peer;
    ASSERT_EQ(peer.ask("has home"), "yes");
    const std::size_t before = loads();
    expectFailure(
        platwifi({"set", "home", "priority=5"}, test::Streams{test::CAPTURED, test::CLOSED}),
        "the result cannot be written");
    awaitLoads(before + 3);
}

TEST_F(OtherProcesses, ReloadAfterAnInterruptedSave) {
    SKIP_IN_EMULATOR();
    test::Checkpoint saving("/tmp/saving");
    on({"save_config"}).pausesAt(saving.path()).prints("OK\n");
    serve({"home"});
    test::Peer peer;
    ASSERT_EQ(peer.ask("has home"), "yes");
    const std::size_t before = loads();
    test::Program program({"set", "home", "priority=5"});
    saving.awaitArrival();
    program.signal(SIGINT);
    saving.letGo();
    EXPECT_EQ(program.end().status, -SIGINT);
    awaitLoads(before + 3);
}

TEST_F(OtherProcesses, AreNeededForTheBlockToStay) {
    serve({"home"});
    edit("5");
    EXPECT_FALSE(hasName());
    EXPECT_EQ(platwifi({"networks"}).status, 0);
    EXPECT_FALSE(hasName());
}

TEST_F(OtherProcesses, ThatHaveDiedDoNotKeepTheBlock) {
    serve({"home"});
    {
        test::Peer peer;
        ASSERT_EQ(peer.ask("has home"), "yes");
        peer.kill();
    }
    EXPECT_TRUE(hasName());
    edit("5");
    EXPECT_FALSE(hasName());
}

} // namespace
