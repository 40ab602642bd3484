package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertLinesMatch;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.time.Duration;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

class WifiDemoTest {
    private static final Duration PATIENCE = Duration.ofMinutes(5);
    private static final String RUNNING = "wpa_supplicant is running.";
    private static final String ADAPTERS = "Adapters: wlan0";
    private static final String IDLE = "State: INACTIVE";
    private static final String NO_NETWORKS = "Configured networks: none";
    private static final String SCANNING = "Scanning on wlan0 \\.+";
    private static final String INTERFACES =
            "Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n";
    private static final String LIST = "network id / ssid / bssid / flags\n";
    private static final String HOME = "0\thome\tany\t[CURRENT]\n";
    private static final String CAFE = "02:00:00:00:02:00\t5180\t-71\t[ESS]\tcafe";
    private static final String WORK = "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\twork";

    private final ByteArrayOutputStream out = new ByteArrayOutputStream();
    private final ByteArrayOutputStream err = new ByteArrayOutputStream();

    @Test
    void showsTheAccessPointsStrongestFirst() {
        supplicant("").scan(
                "02:00:00:00:02:00\t5180\t-71\t[ESS]\t网络",
                "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\thome",
                "02:00:00:00:03:00\t5955\t-104\t[WPA2-EAP-CCMP][ESS]\t").play();
        assertEquals(0, run());
        assertLinesMatch(List.of(
                RUNNING, ADAPTERS, IDLE, NO_NETWORKS, SCANNING,
                "SSID      BSSID              Channel   MHz   dBm  Security",
                "home      02:00:00:00:01:00        1  2412   -30  WPA2-PSK",
                "网络      02:00:00:00:02:00       36  5180   -71  open",
                "\\(hidden\\)  02:00:00:00:03:00        1  5955  -104  WPA2-Enterprise"),
                lines(out));
        assertEquals(List.of(), lines(err));
    }

    @Test
    void listsTheConfiguredNetworksAndChangesNothing() {
        supplicant(HOME + "1\tCaf\\xc3\\xa9\tany\t[DISABLED]\n").scan(CAFE)
                .when("*").print("FAIL\n").play();
        assertEquals(0, run());
        assertEquals(3, lines(out).indexOf("Configured networks:"));
        assertEquals(List.of("  Café", "  home"),
                lines(out).subList(4, 6).stream().sorted().collect(Collectors.toList()));
        assertEquals(List.of(), changes());
    }

    @Test
    void addsAnOpenNetworkConnectsToItAndPutsEverythingBack() {
        connecting("cafe", "", "0\tcafe\tany\t\n").scan(CAFE).when("*").print("OK\n")
                .play();
        assertEquals(0, run("wlan0", "--connect", "cafe"), err::toString);
        assertConnectionShown("Added cafe, an open network\\.",
                "Connecting to cafe .*SCANNING.* ASSOCIATING.* COMPLETED",
                "Removed cafe again\\.", "All configured networks are enabled; .*");
        assertEquals(List.of("add_network", "set_network 0 ssid \"cafe\"", "enable_network 0",
                "set_network 0 ssid \"cafe\"", "set_network 0 key_mgmt NONE", "save_config", "reconfigure", "select 0",
                "disconnect", "set_network 0 disabled 0", "reassociate", "remove_network 0",
                "save_config", "reconfigure"), changes());
    }

    @Test
    void whatIsKeptIsLeftAlone() {
        connecting("cafe", "", "0\tcafe\tany\t\n").scan(CAFE).when("*").print("OK\n")
                .play();
        assertEquals(0, run("--connect", "cafe", "--keep"), err::toString);
        assertConnectionShown("Added cafe, an open network\\.", "Connecting to cafe .*COMPLETED");
        assertEquals("select 0", changes().get(changes().size() - 1));
    }

    @Test
    void aConfiguredNetworkIsConnectedToAndStays() {
        connecting("home", HOME).scan(CAFE).when("*").print("OK\n").play();
        assertEquals(0, run("--connect", "home"), err::toString);
        assertConnectionShown("home is configured already\\.", "Connecting to home .*COMPLETED",
                "All configured networks are enabled; .*");
        assertEquals(List.of("select 0", "disconnect", "set_network 0 disabled 0", "reassociate"),
                changes());
    }

    @Test
    void aNetworkThatNeedsAPasswordIsNotAdded() {
        supplicant("").scan(CAFE, WORK).when("*").print("OK\n").play();
        assertEquals(1, run("--connect", "work"));
        assertLinesMatch(List.of("wifi-demo: work needs a password, .*"), lines(err));
        assertEquals(List.of(), changes());
    }

    @Test
    void aNetworkThatIsNotAddedIsExplained() {
        supplicant("").scan(CAFE).when("-iwlan0", "add_network").print("FAIL\n")
                .when("*").print("OK\n").play();
        assertEquals(1, run("--connect", "cafe"));
        assertLinesMatch(List.of("wifi-demo: the supplicant did not add cafe; see .*"), lines(err));
    }

    @Test
    void aNetworkThatIsNotSavedIsExplainedAndRemoved() {
        supplicant("").scan(CAFE).when("-iwlan0", "save_config").print("FAIL\n")
                .when("*").print("OK\n").play();
        assertEquals(1, run("--connect", "cafe"));
        assertLinesMatch(List.of("wifi-demo: the supplicant did not save cafe; .*update_config=1.*"),
                lines(err));
        assertEquals("remove_network 0", changes().get(changes().size() - 1));
    }

    @Test
    void aConnectionThatIsNotAcceptedIsExplained() {
        supplicant(HOME).scan(CAFE).when("-iwlan0", "select", "0").exit(255)
                .when("*").print("OK\n").play();
        assertEquals(1, run("--connect", "home"));
        assertLinesMatch(List.of("wifi-demo: the supplicant did not accept to connect to home; .*"),
                lines(err));
    }

    @Test
    void aConnectionThatDoesNotCompleteEndsWithTheLastStateAndPutsEverythingBack() {
        supplicant("", "0\tcafe\tany\t\n").scan(CAFE).when("*").print("OK\n").play();
        assertEquals(1, run(Duration.ZERO, "--connect", "cafe"));
        assertLinesMatch(List.of("wifi-demo: cafe is not connected after 0 s, the last state was"
                + " INACTIVE; see .*"), lines(err));
        assertConnectionShown("Added .*", "Connecting to cafe .*INACTIVE.*", "Removed cafe again\\.",
                "All .*");
    }

    @Test
    void whatIsNotPutBackIsToldToo() {
        supplicant(HOME).scan(CAFE).when("-iwlan0", "reassociate").print("FAIL\n")
                .when("*").print("OK\n").play();
        assertEquals(1, run(Duration.ZERO, "--connect", "home"));
        assertLinesMatch(List.of("wifi-demo: home is not connected .*",
                "wifi-demo: the supplicant did not take back every change; see .*"), lines(err));
    }

    @Test
    void withoutSupplicantItSaysHowToStartOne() {
        new StandIn().processes("1 /sbin/init\n").play();
        assertEquals(1, run("wlan0"));
        assertLinesMatch(
                List.of("wifi-demo: wpa_supplicant is not running; start it .* -i wlan0 .*"),
                lines(err));
        assertEquals(List.of(), lines(out));
    }

    @Test
    void aSupplicantThatDoesNotAnswerIsExplained() {
        new StandIn().processes("4711 /sbin/wpa_supplicant -iwlan0\n").when("*").exit(255).play();
        assertEquals(1, run());
        assertLinesMatch(List.of("wifi-demo: the supplicant names no adapter; see .*"), lines(err));
        assertLinesMatch(List.of(RUNNING), lines(out));
    }

    @Test
    void aScanThatFailsIsExplained() {
        supplicant("").idle().when("-iwlan0", "scan").exit(255).play();
        assertEquals(1, run());
        assertLinesMatch(List.of("wifi-demo: the supplicant does not scan on wlan0; see .*"),
                lines(err));
        assertLinesMatch(List.of(RUNNING, ADAPTERS, IDLE, NO_NETWORKS, SCANNING), lines(out));
    }

    @Test
    void nothingInRangeIsExplained() {
        supplicant("").scan().play();
        assertEquals(1, run());
        assertLinesMatch(List.of("wifi-demo: wlan0 found no access point; see .*"), lines(err));
        assertLinesMatch(List.of(RUNNING, ADAPTERS, IDLE, NO_NETWORKS, SCANNING), lines(out));
    }

    @Test
    void wrongUseGetsOneLineWithTheUsage() {
        assertEquals(2, run("-v"));
        assertLinesMatch(List.of("wifi-demo: '-v' is not understood here; usage: wifi-demo .*"),
                lines(err));
    }

    /** Lists are what list_networks prints, one a call; the last one repeats. */
    private static StandIn supplicant(String... lists) {
        StandIn standIn = new StandIn().processes("4711 /sbin/wpa_supplicant -iwlan0\n")
                .when("interface").print(INTERFACES)
                .when("-iwlan0", "list_networks").print(LIST + lists[0]);
        Stream.of(lists).skip(1).forEach(list -> standIn.then().print(LIST + list));
        return standIn;
    }

    /** More idle answers than come before the connection: how many those are is the library's. */
    private static StandIn connecting(String ssid, String... lists) {
        StandIn standIn = supplicant(lists)
                .when("-iwlan0", "add_network").print("0\n").idle();
        for (int i = 0; i < 6; ++i)
            standIn.then().print("wpa_state=INACTIVE\n");
        return standIn.then().print("wpa_state=SCANNING\n").then().print("wpa_state=ASSOCIATING\n")
                .then().print("bssid=02:00:00:00:02:00\nssid=" + ssid + "\nwpa_state=COMPLETED\n");
    }

    /** What the supplicant was told, without what it was asked. */
    private static List<String> changes() {
        return StandIn.calls().stream().map(call -> call.replaceFirst("^-iwlan0 ", ""))
                .filter(call -> !call.matches("(arg|interface|status|list_networks|get_network.*"
                        + "|scan|scan_results)"))
                .collect(Collectors.toList());
    }

    /** The lines after the access points. */
    private void assertConnectionShown(String... expected) {
        List<String> all = lines(out);
        assertLinesMatch(List.of(expected),
                all.subList(Math.max(0, all.size() - expected.length), all.size()));
    }

    private int run(String... arguments) {
        return run(PATIENCE, arguments);
    }

    private int run(Duration patience, String... arguments) {
        return WifiDemo.run(patience, new PrintStream(out, true, StandardCharsets.UTF_8),
                new PrintStream(err, true, StandardCharsets.UTF_8), arguments);
    }

    private static List<String> lines(ByteArrayOutputStream stream) {
        return stream.toString(StandardCharsets.UTF_8).lines().collect(Collectors.toList());
    }
}
