package demo;

import static demo.DemoRun.CAFE;
import static demo.DemoRun.HOME;
import static demo.DemoRun.changes;
import static demo.DemoRun.play;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertLinesMatch;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;

import java.io.IOException;
import java.util.List;
import java.util.stream.Collectors;

class WifiDemoTest extends DemoTest {
    private static final String RUNNING = "wpa_supplicant is running.";
    private static final String ADAPTERS = "Adapters: wlan0";
    private static final String IDLE = "State: IDLE";
    private static final String NO_NETWORKS = "Configured networks: none";
    private static final String SCANNING = "Scanning on wlan0 \\.+";

    @Test
    void showsTheAccessPointsStrongestFirst() {
        play(new StandIn(), "",
                "02:00:00:00:02:00\t5180\t-71\t[ESS]\t网络\n",
                "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\thome\n",
                "02:00:00:00:03:00\t5955\t-104\t[WPA2-EAP-CCMP][ESS]\t\n",
                "02:00:00:00:04:00\t60480\t-110\t[WEP][ESS]\told\n");
        assertEquals(0, demo.run());
        assertLinesMatch(List.of(
                RUNNING, ADAPTERS, IDLE, NO_NETWORKS, SCANNING,
                "SSID      BSSID              Channel    MHz   dBm  Security",
                "home      02:00:00:00:01:00        1   2412   -30  WPA2-PSK",
                "网络      02:00:00:00:02:00       36   5180   -71  open",
                "\\(hidden\\)  02:00:00:00:03:00        1   5955  -104  WPA2-Enterprise",
                "old       02:00:00:00:04:00        \\?  60480  -110  WEP"),
                demo.out());
        assertEquals(List.of(), demo.err());
    }

    @Test
    void listsTheConfiguredNetworksAndChangesNothing() {
        play(new StandIn(), HOME + "1\tCaf\\xc3\\xa9\tany\t[DISABLED]\n", CAFE);
        assertEquals(0, demo.run());
        assertEquals(3, demo.out().indexOf("Configured networks:"));
        assertEquals(List.of("  Café", "  home"),
                demo.out().subList(4, 6).stream().sorted().collect(Collectors.toList()));
        assertEquals(List.of(), changes());
    }

    @Test
    void showsTheDocumentWithoutAConnection() throws IOException {
        play(new StandIn(), "", CAFE);
        assertEquals(0, demo.run("--xml", Programs.make(folder, "echo '<document/>'")));
        demo.assertLast("cafe .* open", "<document/>");
        assertEquals(List.of(), changes());
    }

    @Test
    void withoutSupplicantItSaysHowToStartOne() {
        demo.host.close();
        new StandIn().processes("1 /sbin/init\n").when("*").exit(255).play();
        assertEquals(1, demo.run("wlan0"));
        demo.assertErrors("wifi-demo: wpa_supplicant is not running; start it .* -i wlan0 .*");
        assertEquals(List.of(), demo.out());
    }

    @Test
    void aSupplicantThatDoesNotAnswerIsExplained() {
        demo.host.close();
        new StandIn().processes("4711 /sbin/wpa_supplicant -iwlan0\n").when("*").exit(255).play();
        assertEquals(1, demo.run());
        demo.assertErrors("wifi-demo: no process listens at .*");
        assertEquals(List.of(), demo.out());
    }

    @Test
    void aScanThatFailsIsExplained() {
        play(new StandIn().when("-iwlan0", "scan").exit(255), "");
        assertEquals(1, demo.run());
        demo.assertErrors("wifi-demo: wlan0 cannot be scanned; .*");
        assertLinesMatch(List.of(RUNNING, ADAPTERS, IDLE, NO_NETWORKS, SCANNING), demo.out());
    }

    @Test
    void nothingInRangeIsExplained() {
        play(new StandIn(), "");
        assertEquals(1, demo.run());
        demo.assertErrors("wifi-demo: wlan0 found no access point; see .*");
        assertLinesMatch(List.of(RUNNING, ADAPTERS, IDLE, NO_NETWORKS, SCANNING), demo.out());
    }

    @Test
    void wrongUseGetsOneLineWithTheUsage() {
        assertEquals(2, demo.run("-v"));
        demo.assertErrors("wifi-demo: '-v' is not understood here; usage: wifi-demo .*");
    }
}
