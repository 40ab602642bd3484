package demo;

import static demo.DemoRun.CAFE;
import static demo.DemoRun.HOME;
import static demo.DemoRun.changes;
import static demo.DemoRun.connecting;
import static demo.DemoRun.supplicant;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import java.io.IOException;
import java.nio.file.Path;
import java.time.Duration;
import java.util.List;

/** The program when it connects to open networks and to those that are configured. */
class ConnectingTest {
    @TempDir
    Path folder;

    private final DemoRun demo = new DemoRun();

    @Test
    void addsAnOpenNetworkConnectsToItAndUndoesEverything() {
        connecting("cafe", "", "0\tcafe\tany\t\n").scan(CAFE).when("*").print("OK\n")
                .play();
        assertEquals(0, demo.run("wlan0", "--connect", "cafe"), demo::errors);
        demo.assertLast("Added cafe, an open network\\.", "Saved cafe\\.",
                "Connecting to cafe .*IDLE.* SCANNING.* ASSOCIATING.* COMPLETED[ .]*",
                "Disconnecting from cafe .*COMPLETED.* DISCONNECTED[ .]*",
                "Removed cafe again\\.", "All configured networks are enabled; .*");
        assertEquals(List.of("add_network", "set_network 0 ssid \"cafe\"", "enable_network 0",
                "set_network 0 ssid \"cafe\"", "set_network 0 key_mgmt NONE", "save_config",
                "reconfigure", "select 0", "disconnect", "disconnect", "set_network 0 disabled 0",
                "reassociate", "remove_network 0", "save_config", "reconfigure"), changes());
    }

    @Test
    void aNetworkThatIsKeptStaysConnected() {
        connecting("cafe", "", "0\tcafe\tany\t\n").scan(CAFE).when("*").print("OK\n")
                .play();
        assertEquals(0, demo.run("--connect", "cafe", "--keep"), demo::errors);
        demo.assertLast("Added cafe, an open network\\.", "Saved cafe\\.",
                "Connecting to cafe .*COMPLETED[ .]*");
        assertEquals("select 0", changes().get(changes().size() - 1));
    }

    @Test
    void aConfiguredNetworkIsConnectedToAndStays() {
        connecting("home", HOME).scan(CAFE).when("*").print("OK\n").play();
        assertEquals(0, demo.run("--connect", "home"), demo::errors);
        demo.assertLast("home is configured already\\.", "Connecting to home .*COMPLETED[ .]*",
                "Disconnecting from home .*COMPLETED.* DISCONNECTED[ .]*",
                "All configured networks are enabled; .*");
        assertEquals(List.of("select 0", "disconnect", "disconnect", "set_network 0 disabled 0",
                "reassociate"), changes());
    }

    @Test
    void aNetworkThatIsNotAddedIsExplained() {
        supplicant("").scan(CAFE).when("-iwlan0", "add_network").print("FAIL\n")
                .when("*").print("OK\n").play();
        assertEquals(1, demo.run("--connect", "cafe"));
        demo.assertErrors("wifi-demo: the supplicant did not add cafe; see .*");
    }

    @Test
    void aNetworkThatIsNotSavedIsExplainedAndRemoved() {
        supplicant("").scan(CAFE).when("-iwlan0", "save_config").print("FAIL\n")
                .when("-iwlan0", "add_network").print("0\n")
                .when("*").print("OK\n").play();
        assertEquals(1, demo.run("--connect", "cafe"));
        demo.assertErrors("wifi-demo: the supplicant did not save cafe; .*update_config=1.*");
        assertEquals("remove_network 0", changes().get(changes().size() - 1));
    }

    @Test
    void aConnectionThatIsNotAcceptedIsExplained() {
        supplicant(HOME).scan(CAFE).when("-iwlan0", "select", "0").exit(255)
                .when("*").print("OK\n").play();
        assertEquals(1, demo.run("--connect", "home"));
        demo.assertErrors("wifi-demo: the supplicant did not accept to connect to home; .*");
    }

    @Test
    void aConnectionThatDoesNotCompleteEndsWithTheLastStateAndUndoesEverything() {
        supplicant("", "0\tcafe\tany\t\n").scan(CAFE)
                .when("-iwlan0", "add_network").print("0\n")
                .when("*").print("OK\n").play();
        assertEquals(1, demo.run(Duration.ZERO, "--connect", "cafe"));
        demo.assertErrors("wifi-demo: cafe is not connected after 0 s, the last state was"
                + " IDLE; see .*");
        demo.assertLast("Added .*", "Saved .*", "Connecting to cafe .*IDLE.*",
                "Removed cafe again\\.", "All .*");
    }

    @Test
    void aChangeThatIsNotUndoneIsReportedToo() {
        supplicant(HOME).scan(CAFE).when("-iwlan0", "reassociate").print("FAIL\n")
                .when("*").print("OK\n").play();
        assertEquals(1, demo.run(Duration.ZERO, "--connect", "home"));
        demo.assertErrors("wifi-demo: home is not connected .*",
                "wifi-demo: the supplicant did not take back every change; see .*");
    }

    @Test
    void aStateWithoutANameIsNotShown() {
        connecting("home", HOME).scan(CAFE).when("*").print("OK\n").play();
        demo.run("--connect", "home");
        assertFalse(demo.out().toString().contains("UNKNOWN"), demo.out()::toString);
    }

    @Test
    void aSupplicantThatStaysConnectedIsExplained() {
        supplicant(HOME).when("-iwlan0", "status").print("ssid=home\nwpa_state=COMPLETED\n")
                .scan(CAFE).when("*").print("OK\n").play();
        assertEquals(1, demo.run(Duration.ZERO, "--connect", "home"));
        demo.assertErrors("wifi-demo: the supplicant is COMPLETED on home 0 s after .*");
    }

    @Test
    void anInterruptionUndoesEverything() {
        supplicant("", "0\tcafe\tany\t\n").scan(CAFE)
                .when("-iwlan0", "add_network").print("0\n")
                .when("*").print("OK\n").play();
        Thread.currentThread().interrupt();
        assertEquals(Stop.INTERRUPTED, demo.run("--connect", "cafe"));
        demo.assertErrors("wifi-demo: it was interrupted; .*");
        demo.assertLast("Connecting to cafe .*IDLE.*", "Removed cafe again\\.", "All .*");
    }

    @Test
    void theDocumentIsShownWhileConnected() throws IOException {
        connecting("home", HOME).scan(CAFE).when("*").print("OK\n").play();
        assertEquals(0, demo.run("--connect", "home", "--xml",
                Programs.make(folder, "echo '<document/>'")), demo::errors);
        demo.assertLast("Connecting to home .*COMPLETED[ .]*", "<document/>",
                "Disconnecting from home .*", "All .*");
    }

    @Test
    void aDocumentThatFailsIsExplainedAndEverythingIsUndone() throws IOException {
        connecting("cafe", "", "0\tcafe\tany\t\n").scan(CAFE).when("*").print("OK\n").play();
        assertEquals(1, demo.run("--connect", "cafe", "--xml", Programs.make(folder, "exit 1")));
        demo.assertErrors("wifi-demo: .* xml ended with status 1; .*");
        demo.assertLast("Connecting to cafe .*COMPLETED[ .]*", "Removed cafe again\\.", "All .*");
    }

    /** The client prints its name with escapes, in the list and in the status. */
    @Test
    void aNameThatIsNotAsciiIsConnectedToAndRemovedToo() {
        connecting("Caf\\xc3\\xa9", "", "0\tCaf\\xc3\\xa9\tany\t\n")
                .scan("02:00:00:00:02:00\t5180\t-71\t[ESS]\tCaf\\xc3\\xa9")
                .when("*").print("OK\n").play();
        assertEquals(0, demo.run("--connect", "Café"), demo::errors);
        demo.assertLast("Added Café, an open network\\.", "Saved Café\\.",
                "Connecting to Café .*COMPLETED[ .]*", "Disconnecting from Café .*DISCONNECTED[ .]*",
                "Removed Café again\\.", "All .*");
        assertEquals(List.of("remove_network 0", "save_config", "reconfigure"),
                changes().subList(changes().size() - 3, changes().size()));
    }
}
