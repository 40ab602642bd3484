package demo;

import static demo.DemoRun.CAFE;
import static demo.DemoRun.HOME;
import static demo.DemoRun.SHORT;
import static demo.DemoRun.adding;
import static demo.DemoRun.changes;
import static demo.DemoRun.connecting;
import static demo.DemoRun.play;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;
import com.quorvel.platwifi.api.Host;

import org.junit.jupiter.api.Test;

import java.io.IOException;
import java.util.List;

/** The program when it connects to open networks and to those that are configured. */
class ConnectingTest extends DemoTest {
    @Test
    void addsAnOpenNetworkConnectsToItAndUndoesEverything() {
        play(connecting(adding("cafe"), "cafe"), "", CAFE);
        assertEquals(0, demo.run("wlan0", "--connect", "cafe"), demo::errors);
        demo.assertLast("Added cafe, an open network\\.", "Saved cafe\\.",
                "Connecting to cafe .*IDLE.* COMPLETED[ .]*",
                "Disconnecting from cafe .*COMPLETED.* DISCONNECTED[ .]*",
                "Removed cafe again\\.", "All configured networks are enabled; .*");
        assertEquals(List.of("add_network", "set_network 0 ssid \"cafe\"", "enable_network 0",
                "set_network 0 ssid \"cafe\"", "set_network 0 key_mgmt NONE", "save_config",
                "reconfigure", "select 0", "disconnect", "disconnect", "set_network 0 disabled 0",
                "reassociate", "remove_network 0", "save_config", "reconfigure"), changes());
    }

    @Test
    void aNetworkThatIsKeptStaysConnected() {
        play(connecting(adding("cafe"), "cafe"), "", CAFE);
        assertEquals(0, demo.run("--connect", "cafe", "--keep"), demo::errors);
        demo.assertLast("Added cafe, an open network\\.", "Saved cafe\\.",
                "Connecting to cafe .*COMPLETED[ .]*");
        assertEquals("select 0", lastOf(changes()));
    }

    @Test
    void aConfiguredNetworkIsConnectedToAndStays() {
        play(connecting(new StandIn(), "home"), HOME, CAFE);
        assertEquals(0, demo.run("--connect", "home"), demo::errors);
        demo.assertLast("home is configured already\\.", "Connecting to home .*COMPLETED[ .]*",
                "Disconnecting from home .*COMPLETED.* DISCONNECTED[ .]*",
                "All configured networks are enabled; .*");
        assertEquals(List.of("select 0", "disconnect", "disconnect", "set_network 0 disabled 0",
                "reassociate"), changes());
    }

    @Test
    void aNetworkThatIsNotAddedIsExplained() {
        play(new StandIn().when("-iwlan0", "add_network").print("FAIL\n"), "", CAFE);
        assertEquals(1, demo.run("--connect", "cafe"));
        demo.assertErrors("wifi-demo: the supplicant did not accept to add cafe; .*");
    }

    @Test
    void aNetworkThatIsNotSavedIsExplainedAndRemoved() {
        play(adding("cafe").when("-iwlan0", "save_config").print("FAIL\n").exit(1), "", CAFE);
        assertEquals(1, demo.run("--connect", "cafe"));
        demo.assertErrors("wifi-demo: the supplicant did not save .*update_config=1.*");
        assertEquals("reconfigure", lastOf(changes()));
    }

    @Test
    void aConnectionThatIsNotAcceptedIsExplained() {
        play(new StandIn().when("-iwlan0", "select", "0").exit(255), HOME, CAFE);
        assertEquals(1, demo.run("--connect", "home"));
        demo.assertErrors("wifi-demo: the supplicant did not accept to connect to home; .*");
    }

    @Test
    void aConnectionThatDoesNotCompleteEndsWithTheLastStateAndUndoesEverything() {
        play(adding("cafe"), "", CAFE);
        assertEquals(1, demo.run(SHORT, "--connect", "cafe"));
        demo.assertErrors("wifi-demo: cafe is not connected: that takes longer than 1 s, the last"
                + " state is INACTIVE; .*");
        demo.assertLast("Added .*", "Saved .*", "Connecting to cafe .*IDLE.*",
                "Removed cafe again\\.", "All .*");
    }

    @Test
    void aChangeThatIsNotUndoneIsReportedToo() {
        play(new StandIn().when("-iwlan0", "reassociate").print("FAIL\n"), HOME, CAFE);
        assertEquals(1, demo.run(SHORT, "--connect", "home"));
        demo.assertErrors("wifi-demo: home is not connected: .*",
                "wifi-demo: the supplicant did not take back every change; see .*");
    }

    @Test
    void eachStateOnTheWayIsShownUnlessItHasNoName() {
        play(new StandIn(), HOME, CAFE);
        DemoRun.beside(() -> {
            Host.awaitCall("select 0");
            for (String state : List.of("SCANNING", "ASSOCIATING", "4WAY_HANDSHAKE"))
                report(state);
            play(connecting(new StandIn(), "home").when("-iwlan0", "status")
                    .print(Host.statusOn("home", 0)), HOME);
        });
        assertEquals(0, demo.run("--connect", "home"), demo::errors);
        demo.assertLast("home .*",
                "Connecting to home .*IDLE.* SCANNING.* ASSOCIATING.* 4WAY_HANDSHAKE.* COMPLETED[ .]*",
                "Disconnecting .*", "All .*");
        assertFalse(demo.out().toString().contains("UNKNOWN"), demo.out()::toString);
    }

    @Test
    void theNetworkOfAnotherConnectionIsNamed() {
        play(connecting(adding("cafe"), "cafe").when("-iwlan0", "status")
                .print(Host.statusOn("home", 7)), "", CAFE);
        assertEquals(0, demo.run("--connect", "cafe"), demo::errors);
        assertTrue(demo.out().contains("State: COMPLETED on home"), demo.out()::toString);
        demo.assertLast("Connecting to cafe .*COMPLETED on home.* COMPLETED[ .]*",
                "Disconnecting .*", "Removed .*", "All .*");
    }

    @Test
    void aSupplicantThatStaysConnectedIsExplained() {
        play(new StandIn().when("-iwlan0", "status").print(Host.statusOn("home", 0)), HOME, CAFE);
        assertEquals(1, demo.run(SHORT, "--connect", "home"));
        demo.assertErrors("wifi-demo: the supplicant is COMPLETED on home 1 s after .*");
    }

    @Test
    void anInterruptionUndoesEverything() {
        play(adding("cafe"), "", CAFE);
        interruptAfter("select 0");
        assertEquals(Stop.INTERRUPTED, demo.run("--connect", "cafe"));
        demo.assertErrors("wifi-demo: it was interrupted; .*");
        demo.assertLast("Connecting to cafe .*IDLE.*", "Removed cafe again\\.", "All .*");
        assertTrue(changes().contains("remove_network 0"), changes()::toString);
    }

    @Test
    void anInterruptionEndsTheAttemptForANetworkThatIsKept() {
        play(adding("cafe"), "", CAFE);
        interruptAfter("select 0");
        assertEquals(Stop.INTERRUPTED, demo.run("--connect", "cafe", "--keep"));
        demo.assertLast("Saved cafe\\.", "Connecting to cafe .*IDLE.*");
        assertEquals("reassociate", lastOf(changes()), "the supplicant chooses among all networks");
    }

    @Test
    void anInterruptionOfAChangeIsNoFailure() {
        play(adding("cafe"), "", CAFE);
        Thread.currentThread().interrupt();
        assertEquals(Stop.INTERRUPTED, demo.run("--connect", "cafe"));
        assertTrue(Thread.interrupted());
        demo.assertErrors("wifi-demo: it was interrupted; .*");
        assertEquals(List.of(), changes());
    }

    @Test
    void theDocumentIsShownWhileConnected() throws IOException {
        play(connecting(new StandIn(), "home"), HOME, CAFE);
        assertEquals(0, demo.run("--connect", "home", "--xml",
                Programs.make(folder, "echo '<document/>'")), demo::errors);
        demo.assertLast("Connecting to home .*COMPLETED[ .]*", "<document/>",
                "Disconnecting from home .*", "All .*");
    }

    @Test
    void aDocumentThatFailsIsExplainedAndEverythingIsUndone() throws IOException {
        play(connecting(adding("cafe"), "cafe"), "", CAFE);
        assertEquals(1, demo.run("--connect", "cafe", "--xml", Programs.make(folder, "exit 1")));
        demo.assertErrors("wifi-demo: .* xml ended with status 1; .*");
        demo.assertLast("Connecting to cafe .*COMPLETED[ .]*", "Removed cafe again\\.", "All .*");
    }

    /** The client prints its name with escapes, in the list and in the status. */
    @Test
    void aNameThatIsNotAsciiIsConnectedToAndRemovedToo() {
        play(connecting(adding("Caf\\xc3\\xa9"), "Caf\\xc3\\xa9"), "",
                "02:00:00:00:02:00\t5180\t-71\t[ESS]\tCaf\\xc3\\xa9\n");
        assertEquals(0, demo.run("--connect", "Café"), demo::errors);
        demo.assertLast("Added Café, an open network\\.", "Saved Café\\.",
                "Connecting to Café .*COMPLETED[ .]*", "Disconnecting from Café .*DISCONNECTED[ .]*",
                "Removed Café again\\.", "All .*");
        assertEquals(List.of("remove_network 0", "save_config", "reconfigure"),
                changes().subList(changes().size() - 3, changes().size()));
    }

    @Test
    void aConfiguredNameThatIsNoTextIsChosenAsItIsShown() {
        play(connecting(new StandIn(), "caf\\xe9"), "0\tcaf\\xe9\tany\t\n", CAFE);
        assertEquals(0, demo.run("--connect", "caf\\xe9"), demo::errors);
        demo.assertLast("caf\\\\xe9 is configured already\\.", "Connecting to caf\\\\xe9 .*COMPLETED[ .]*",
                "Disconnecting .*", "All .*");
    }

    /** Reports a state without a name, and then this one until the program has shown it. */
    private void report(String state) {
        play(new StandIn().when("-iwlan0", "status").print("wpa_state=AUTHENTICATING\n"), HOME);
        Host.awaitCall("status");
        play(new StandIn().when("-iwlan0", "status").print("wpa_state=" + state + "\n"), HOME);
        Host.await(() -> demo.out().toString().contains(" " + state));
    }

    private static void interruptAfter(String call) {
        Thread program = Thread.currentThread();
        DemoRun.beside(() -> {
            Host.awaitCall(call);
            program.interrupt();
        });
    }

    private static String lastOf(List<String> texts) {
        return texts.get(texts.size() - 1);
    }
}
