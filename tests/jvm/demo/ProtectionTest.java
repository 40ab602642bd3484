package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.api.FrameProtection;
import com.quorvel.platwifi.api.Network;
import com.quorvel.platwifi.api.Ssid;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

import java.io.ByteArrayInputStream;
import java.util.List;

class ProtectionTest {
    private static final Ssid CAFE = Ssid.of("cafe");

    @ParameterizedTest
    @CsvSource({
        "'', [NONE]", "open, [NONE]", "open/WPA2-PSK, [NONE]", "open/WPA2-Enterprise, [NONE]",
        "OWE-transition, [NONE]", "open/OWE, [NONE]", "OWE, [OWE]",
    })
    void withoutAKeyItIsOpen(String offered, String keyManagement) throws Stop {
        Protection protection = Protection.of(CAFE, ways(offered), null);
        assertEquals("an open network", protection.toString());
        Network network = protection.network();
        assertEquals(CAFE, network.ssid());
        assertEquals(keyManagement, network.keyManagement().toString());
        assertFalse(network.hasPassphrase());
    }

    @ParameterizedTest
    @CsvSource({
        "'', [WPA-PSK]", "WPA-PSK, [WPA-PSK]", "WPA2-PSK, [WPA-PSK]", "WPA-PSK/WPA2-PSK, [WPA-PSK]",
        "open/WPA2-PSK, [WPA-PSK]", "WPA2-PSK/WPA2-Enterprise, [WPA-PSK]",
        "WPA2-PSK/WPA3-SAE, '[WPA-PSK, SAE]'", "WPA3-SAE, [SAE]",
    })
    void withAKeyItIsPreShared(String offered, String keyManagement) throws Stop {
        Protection protection = Protection.of(CAFE, ways(offered), key());
        assertEquals("a network with a pre-shared key", protection.toString());
        assertEquals(keyManagement, protection.network().keyManagement().toString());
        assertTrue(protection.network().hasPassphrase());
    }

    @Test
    void managementFramesAreProtectedWhereAnAccessPointMayRequireIt() throws Stop {
        for (String offered : List.of("WPA3-SAE", "WPA2-PSK/WPA3-SAE"))
            assertEquals(FrameProtection.OPTIONAL,
                    Protection.of(CAFE, ways(offered), key()).network().frameProtection());
        assertEquals(FrameProtection.OPTIONAL,
                Protection.of(CAFE, ways("OWE"), null).network().frameProtection());
        assertEquals(FrameProtection.DEFAULT,
                Protection.of(CAFE, ways("WPA2-PSK"), key()).network().frameProtection());
    }

    @ParameterizedTest
    @ValueSource(strings = {
        "WPA-PSK", "WPA2-PSK", "WPA3-SAE", "WPA2-PSK/WPA3-SAE", "WPA2-PSK/WPA2-Enterprise"})
    void aMissingKeyIsExplained(String offered) {
        assertStops("cafe needs its key; write that into a file and name it: --key-file FILE",
                offered, null);
    }

    @ParameterizedTest
    @ValueSource(strings = {"open", "OWE", "OWE-transition"})
    void aKeyForAnOpenNetworkIsExplained(String offered) throws Stop {
        assertStops("cafe is open and takes no key; leave out --key-file", offered, key());
    }

    @ParameterizedTest
    @ValueSource(strings = {"WPA2-Enterprise", "WEP", "WPA-Enterprise/WPA2-Enterprise", "DPP"})
    void whatCannotBeAddedIsExplainedWithAndWithoutAKey(String offered) throws Stop {
        String message = "cafe is protected by " + offered + ", and only open networks and those"
                + " with a pre-shared key or an SAE password can be added here; add it to the"
                + " supplicant's configuration, then try again";
        assertStops(message, offered, null);
        assertStops(message, offered, key());
    }

    private static void assertStops(String message, String offered, Key key) {
        Stop stop = assertThrows(Stop.class, () -> Protection.of(CAFE, ways(offered), key));
        assertEquals(1, stop.status);
        assertEquals(message, stop.getMessage());
    }

    private static List<String> ways(String offered) {
        return offered.isEmpty() ? List.of() : List.of(offered.split("/"));
    }

    private static Key key() throws Stop {
        return Key.read("-", new ByteArrayInputStream("correct horse\n".getBytes()));
    }
}
