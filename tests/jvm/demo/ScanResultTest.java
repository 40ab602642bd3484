package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

import java.util.List;

class ScanResultTest {
    private static final String START = "02:00:00:00:01:00\t2412\t-30\t";

    @Test
    void aLineHasFiveFields() {
        ScanResult result = only(START + "[WPA2-PSK-CCMP][ESS]\tlab-psk");
        assertEquals("02:00:00:00:01:00", result.bssid);
        assertEquals(2412, result.frequency);
        assertEquals(-30, result.signal);
        assertEquals("WPA2-PSK", result.security);
        assertEquals("lab-psk", result.ssid.toString());
    }

    @Test
    void aHiddenNetworkEndsInATab() {
        assertEquals("(hidden)", only(START + "[ESS]\t").ssid.toString());
    }

    @Test
    void flagsMayBeMissing() {
        assertEquals("open", only(START + "\thome").security);
    }

    @Test
    void theNameMayHoldTabs() {
        assertEquals("a\\tb", only(START + "[ESS]\ta\tb").ssid.toString());
    }

    @Test
    void piecesOfALongLineAreJoined() {
        List<ScanResult> results = ScanResult.parse(
                START + "[WPA2-PSK-CCMP][E", "SS]\tlong\\xc3", "\\xa9", START + "[ESS]\tnext");
        assertEquals(2, results.size());
        assertEquals("longé", results.get(0).ssid.toString());
        assertEquals("next", results.get(1).ssid.toString());
    }

    @ParameterizedTest
    @ValueSource(strings = {"", "FAIL", "02:00:00:00:01:00", "02:00:00:00:01\t2412\t-30\t[ESS]\tx",
        "02:00:00:00:01:00\tmany\t-30\t[ESS]\tx", "02:00:00:00:01:00\t2412\t-30\t[ESS]",
        "02:00:00:00:01:00\t99999999999\t-30\t[ESS]\tx", "\t\t\t\t"})
    void whatDescribesNoAccessPointIsLeftOut(String line) {
        assertEquals(List.of(), ScanResult.parse(line));
        assertEquals("home", only(line, START + "[ESS]\thome").ssid.toString());
    }

    @ParameterizedTest
    @CsvSource({"2412, 1", "2437, 6", "2472, 13", "2484, 14", "5160, 32", "5180, 36", "5825, 165",
        "5885, 177", "5935, 2", "5955, 1", "6115, 33", "7115, 233",
        "0, 0", "2407, 0", "2413, 0", "2477, 0", "5900, 0", "7120, 0", "60480, 0"})
    void theFrequencyGivesTheChannel(int frequency, int channel) {
        String line = "02:00:00:00:01:00\t" + frequency + "\t-30\t[ESS]\thome";
        assertEquals(channel, only(line).channel());
    }

    private static ScanResult only(String... lines) {
        List<ScanResult> results = ScanResult.parse(lines);
        assertEquals(1, results.size());
        return results.get(0);
    }
}
