package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

import java.util.List;

/** What a scan tells of an access point. */
class AccessPointTest extends AdapterTest {
    private static final String START = "02:00:00:00:01:00\t2412\t-30\t";

    @Test
    void hasTheFieldsOfItsLine() {
        AccessPoint found = only(START + "[WPA2-PSK-CCMP][ESS]\tlab-psk\n");
        assertEquals("02:00:00:00:01:00", found.bssid());
        assertEquals(2412, found.frequency());
        assertEquals(1, found.channel());
        assertEquals(-30, found.signal());
        assertEquals(100, found.percent());
        assertEquals(Security.WPA2_PSK, found.security());
        assertEquals("WPA2-PSK", found.offered());
        assertEquals("lab-psk", found.ssid().toString());
    }

    @Test
    void mayBeHidden() {
        assertEquals("(hidden)", only(START + "[ESS]\t\n").ssid().toString());
        assertEquals("(hidden)", only(START + "[ESS]\t\\x00\\x00\n").ssid().toString());
    }

    @Test
    void mayHaveTabsInItsName() {
        assertEquals(Ssid.of("a\tb"), only(START + "[ESS]\ta\tb\n").ssid());
    }

    @Test
    void hasANameWhoseEscapesAreDecoded() {
        assertEquals("网络 😀", only(START
                + "[ESS]\t\\xe7\\xbd\\x91\\xE7\\xBB\\x9C \\xf0\\x9f\\x98\\x80\n").ssid().text());
        assertEquals("C:\\\"x\"", only(START + "[ESS]\tC:\\\\\\\"x\\\"\n").ssid().text());
        assertEquals("\\x41", only(START + "[ESS]\t\\\\x41\n").ssid().text());
        assertEquals(Ssid.of("a\nb\tc\u001bd\re"),
                only(START + "[ESS]\ta\\nb\\tc\\ed\\re\n").ssid());
    }

    /** The library gets long lines in pieces. */
    @Test
    void mayHaveALongLine() {
        String flags = "[WPA2-PSK-CCMP]" + "[WPS]".repeat(60);
        List<AccessPoint> found = found(START + flags + "\tlong\\xc3\\xa9\n"
                + "02:00:00:00:02:00\t2437\t-50\t[ESS]\tnext\n");
        assertEquals(2, found.size());
        assertEquals("longé", found.get(0).ssid().toString());
        assertEquals("next", found.get(1).ssid().toString());
    }

    @ParameterizedTest
    @CsvSource({"''", "FAIL", "02:00:00:00:01:00", "02:00:00:00:01:00 2412 -30 [ESS]"})
    void isNotReadFromOtherLines(String line) {
        assertEquals("home", only(line.replace(' ', '\t') + "\n" + START + "[ESS]\thome\n").ssid().text());
    }

    @ParameterizedTest
    @CsvSource({"2412, 1", "2437, 6", "2472, 13", "2484, 14", "5160, 32", "5180, 36", "5825, 165",
        "5885, 177", "5935, 2", "5955, 1", "6115, 33", "7115, 233",
        "0, 0", "2407, 0", "2413, 0", "2477, 0", "5900, 0", "7120, 0", "60480, 0"})
    void hasTheChannelOfItsFrequency(int frequency, int channel) {
        assertEquals(channel,
                only("02:00:00:00:01:00\t" + frequency + "\t-30\t[ESS]\thome\n").channel());
    }

    @ParameterizedTest
    @CsvSource({
        "open, OPEN, [ESS]",
        "open, OPEN, ''",
        "open, OPEN, [WPS][ESS]",
        "WEP, WEP, [WEP][ESS]",
        "WPA-PSK, WPA_PSK, [WPA-PSK-TKIP][ESS]",
        "WPA-Enterprise, WPA_ENTERPRISE, [WPA-EAP-TKIP][ESS]",
        "WPA2-PSK, WPA2_PSK, [WPA2-PSK-CCMP][ESS]",
        "WPA2-PSK, WPA2_PSK, [RSN-PSK-CCMP][MESH]",
        "WPA2-PSK/FT-PSK/WPA2-PSK-SHA256, WPA2_PSK, [WPA2-PSK+FT/PSK+PSK-SHA256-CCMP][WPS][ESS]",
        "FT-PSK, WPA2_PSK, [WPA2-FT/PSK-CCMP-preauth][ESS]",
        "WPA2-Enterprise, WPA2_ENTERPRISE, [WPA2-EAP-CCMP][ESS]",
        "WPA2-Enterprise-SHA256, WPA2_ENTERPRISE, [WPA2-EAP-SHA256-CCMP][ESS]",
        "WPA3-SAE, WPA3_SAE, [WPA2-SAE-CCMP][ESS]",
        "WPA3-Enterprise-192, WPA3_ENTERPRISE_192, [WPA2-EAP-SUITE-B-192-GCMP-256][ESS]",
        "OWE, OWE, [WPA2-OWE-CCMP][ESS]",
        "WPA-PSK/WPA2-PSK, WPA2_PSK, [WPA-PSK-TKIP][WPA2-PSK-CCMP+TKIP][ESS]",
        "WPA2-PSK/WPA3-SAE, WPA2_WPA3, [WPA2-PSK+SAE-CCMP][ESS]",
        "DPP, OTHER, [WPA2-DPP-CCMP][ESS]",
        "WPA2-PSK, WPA2_PSK, [WPA2-PSK-CC",
    })
    void offersTheSecurityOfItsFlags(String offered, Security best, String flags) {
        AccessPoint found = only(START + flags + "\thome\n");
        assertEquals(offered, found.offered());
        assertEquals(best, found.security());
    }

    private AccessPoint only(String lines) {
        List<AccessPoint> found = found(lines);
        assertEquals(1, found.size(), found::toString);
        return found.get(0);
    }

    private List<AccessPoint> found(String lines) {
        Host.supplicant(new StandIn(), lines).play();
        WifiFuture<List<AccessPoint>> scanning = wifi.startScan();
        host.socket.finishScan();
        return scanning.get();
    }
}
