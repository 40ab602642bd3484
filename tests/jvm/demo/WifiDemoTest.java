package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertLinesMatch;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.List;
import java.util.stream.Collectors;

class WifiDemoTest {
    private static final String SCANNING = "Scanning on wlan0 \\.+";

    private final ByteArrayOutputStream out = new ByteArrayOutputStream();
    private final ByteArrayOutputStream err = new ByteArrayOutputStream();

    @Test
    void showsTheAccessPointsStrongestFirst() {
        supplicant().scan(
                "02:00:00:00:02:00\t5180\t-71\t[ESS]\t网络",
                "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\thome",
                "02:00:00:00:03:00\t5955\t-104\t[WPA2-EAP-CCMP][ESS]\t").play();
        assertEquals(0, run());
        assertLinesMatch(List.of(
                "wpa_supplicant is running.",
                SCANNING,
                "SSID      BSSID              Channel   MHz   dBm  Security",
                "home      02:00:00:00:01:00        1  2412   -30  WPA2-PSK",
                "网络      02:00:00:00:02:00       36  5180   -71  open",
                "\\(hidden\\)  02:00:00:00:03:00        1  5955  -104  WPA2-Enterprise"),
                lines(out));
        assertEquals(List.of(), lines(err));
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
    void aScanThatFailsIsExplained() {
        supplicant().when("-iwlan0", "status").exit(255).play();
        assertEquals(1, run());
        assertLinesMatch(List.of("wifi-demo: the supplicant does not scan on wlan0; see .*"),
                lines(err));
        assertLinesMatch(List.of("wpa_supplicant is running.", SCANNING), lines(out));
    }

    @Test
    void nothingInRangeIsExplained() {
        supplicant().scan().play();
        assertEquals(1, run());
        assertLinesMatch(List.of("wifi-demo: wlan0 found no access point; see .*"), lines(err));
        assertLinesMatch(List.of("wpa_supplicant is running.", SCANNING), lines(out));
    }

    @ParameterizedTest
    @CsvSource({"'', ", "-v, ", "wlan0, wlan1"})
    void wrongArgumentsGetTheUsage(String first, String second) {
        String[] arguments = second == null ? new String[] {first} : new String[] {first, second};
        assertEquals(2, run(arguments));
        assertEquals(List.of("usage: wifi-demo [INTERFACE] (default: wlan0)"), lines(err));
    }

    private static StandIn supplicant() {
        return new StandIn().processes("4711 /sbin/wpa_supplicant -iwlan0\n");
    }

    private int run(String... arguments) {
        return WifiDemo.run(arguments, new PrintStream(out, true, StandardCharsets.UTF_8),
                new PrintStream(err, true, StandardCharsets.UTF_8));
    }

    private static List<String> lines(ByteArrayOutputStream stream) {
        return stream.toString(StandardCharsets.UTF_8).lines().collect(Collectors.toList());
    }
}
