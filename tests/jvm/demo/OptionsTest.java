package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.api.Ssid;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

class OptionsTest {
    @Test
    void withoutArgumentsNothingIsConnected() throws Stop {
        Options options = Options.parse();
        assertEquals("wlan0", options.iface());
        assertNull(options.ssid());
        assertNull(options.keyFile());
        assertNull(options.xmlProgram());
    }

    @ParameterizedTest
    @ValueSource(strings = {
        "--connect cafe --key-file a.key --xml platwifi --keep",
        "--keep --xml platwifi --key-file a.key --connect cafe",
    })
    void optionsComeInAnyOrder(String line) throws Stop {
        Options options = Options.parse(line.split(" "));
        assertEquals(Ssid.of("cafe"), options.ssid());
        assertEquals("a.key", options.keyFile());
        assertEquals("platwifi", options.xmlProgram());
        assertTrue(options.keep());
    }

    @Test
    void theDocumentNeedsNoConnection() throws Stop {
        assertEquals("platwifi", Options.parse("--xml", "platwifi").xmlProgram());
    }

    @Test
    void theKeyMayComeFromStandardInput() throws Stop {
        assertEquals("-", Options.parse("--connect", "cafe", "--key-file", "-").keyFile());
    }

    @ParameterizedTest
    @CsvSource({
        "wlan1 --connect cafe, wlan1, cafe, false",
        "--connect cafe, wlan0, cafe, false",
        "wlan1 --connect cafe --keep, wlan1, cafe, true",
        "--connect --keep, wlan0, --keep, false",
        "--connect 无线无线无线无线无线ab, wlan0, 无线无线无线无线无线ab, false",
    })
    void aNetworkIsNamed(String line, String iface, String ssid, boolean keep) throws Stop {
        Options options = Options.parse(line.split(" "));
        assertEquals(iface, options.iface());
        assertEquals(Ssid.of(ssid), options.ssid());
        assertEquals(keep, options.keep());
    }

    @ParameterizedTest
    @CsvSource(quoteCharacter = '"', delimiter = '|', value = {
        "\"\" | '' is not understood here",
        "-v | '-v' is not understood here",
        "wlan0 wlan1 | 'wlan1' is not understood here",
        "wlan0 --keep | --key-file and --keep go with --connect",
        "--key-file a.key | --key-file and --keep go with --connect",
        "--connect cafe --key-file | --key-file needs a file, or - for standard input",
        "--xml | --xml needs the path of platwifi",
        "--connect cafe wlan0 | 'wlan0' is not understood here",
        "--connect cafe --kept | '--kept' is not understood here",
        "--connect | --connect needs an SSID of 1 to 32 bytes",
        "--connect 无线无线无线无线无线abc | --connect needs an SSID of 1 to 32 bytes",
    })
    void wrongUseGetsOneLine(String line, String cause) {
        Stop stop = assertThrows(Stop.class, () -> Options.parse(line.split(" ")));
        assertEquals(2, stop.status);
        assertEquals(cause + "; usage: wifi-demo [INTERFACE] [--connect SSID"
                + " [--key-file FILE] [--keep]] [--xml PROGRAM]",
                stop.getMessage());
    }
}
