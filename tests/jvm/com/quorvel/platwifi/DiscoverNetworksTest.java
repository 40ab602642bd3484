package com.quorvel.platwifi;

import static com.quorvel.platwifi.BWifiPlatformService.discoverNetworks0;
import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.NullAndEmptySource;
import org.junit.jupiter.params.provider.ValueSource;

import java.util.Arrays;
import java.util.List;
import java.util.stream.IntStream;

class DiscoverNetworksTest {
    private static final String HOME = "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\thome";
    private static final String WORK = "02:00:00:00:03:00\t2462\t-61\t[WPA2-EAP-CCMP][ESS]\twork";

    @Test
    void scansAndReturnsTheLinesAfterTheHeader() {
        new StandIn().scan(HOME, WORK).play();
        assertArrayEquals(new String[] {HOME, WORK}, discoverNetworks0("wlan0"));
        assertEquals(List.of("-iwlan0 status", "-iwlan0 scan", "-iwlan0 status",
                "-iwlan0 scan_results"), StandIn.calls());
    }

    @Test
    void waitsUntilTheScanHasEnded() {
        new StandIn()
                .idle().then().print("wpa_state=SCANNING\n").then().print("wpa_state=INACTIVE\n")
                .scanWorks()
                .when("-iwlan0", "scan_results").print(StandIn.HEADER + HOME + "\n").play();
        assertArrayEquals(new String[] {HOME}, discoverNetworks0("wlan0"));
        assertEquals(List.of("-iwlan0 status", "-iwlan0 scan", "-iwlan0 status", "-iwlan0 status",
                "-iwlan0 scan_results"), StandIn.calls());
    }

    @Test
    void nothingInRangeIsAnEmptyArray() {
        new StandIn().scan().play();
        assertArrayEquals(new String[0], discoverNetworks0("wlan0"));
    }

    @Test
    void aStatusThatFailsMeansNull() {
        new StandIn().when("-iwlan0", "status").exit(255).play();
        assertNull(discoverNetworks0("wlan0"));
    }

    @Test
    void aScanThatFailsMeansNull() {
        new StandIn().idle().when("-iwlan0", "scan").exit(255).play();
        assertNull(discoverNetworks0("wlan0"));
    }

    @Test
    void resultsThatFailMeanNull() {
        new StandIn().scan(HOME).exit(255).play();
        assertNull(discoverNetworks0("wlan0"));
    }

    @ParameterizedTest
    @NullAndEmptySource
    @ValueSource(strings = {"nothing", "wlan\uDCE9", "无线", "\uD800", "wlan0123456789"})
    void anInterfaceThatCannotBeScannedIsNull(String iface) {
        new StandIn().scan(HOME).play();
        assertNull(discoverNetworks0(iface));
    }

    @Test
    void anyTextArrivesWhole() {
        String[] lines = {
            HOME + " Café", HOME + "\u0301", HOME + "网络", HOME + "😀\uD83D\uDC69\u200D\uD83D\uDCBB",
            HOME + "\u202Eright to left", HOME + "\u0001\u001b\u007f", HOME + "\\x00\\\\\\\"",
        };
        new StandIn().scan(lines).play();
        assertArrayEquals(lines, discoverNetworks0("wlan0"));
    }

    @Test
    void bytesThatAreNotUtf8ArriveAsLoneSurrogates() {
        String[] lines = {
            HOME + "\uDCE9", HOME + "caf\uDCE9 au lait", HOME + "\uDC80\uDCFF\uDCFE",
            HOME + " cut short: \uDCF0\uDC9F\uDC98", HOME + " overlong zero: \uDCC0\uDC80",
            HOME + " encoded surrogate: \uDCED\uDCA0\uDC80", HOME + "é\uDCE9😀\uDCE9",
        };
        new StandIn().scan(StandIn.bytes(String.join("\n", lines) + "\n")).play();
        assertArrayEquals(lines, discoverNetworks0("wlan0"));
    }

    @Test
    void aLongLineComesInPiecesOf127BytesAndNoByteIsLost() {
        String line = HOME + "网".repeat(60);
        new StandIn().scan(line).play();
        String[] pieces = discoverNetworks0("wlan0");
        assertEquals(2, pieces.length);
        assertEquals(127, StandIn.bytes(pieces[0]).length);
        assertArrayEquals(StandIn.bytes(line), StandIn.bytes(pieces[0] + pieces[1]));
    }

    @Test
    void returnsTheFirst32Lines() {
        String[] lines = IntStream.range(0, 40).mapToObj(i -> HOME + i).toArray(String[]::new);
        new StandIn().scan(lines).play();
        assertArrayEquals(Arrays.copyOf(lines, 32), discoverNetworks0("wlan0"));
    }
}
