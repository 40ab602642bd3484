package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

import java.io.ByteArrayInputStream;
import java.util.List;

class ProtectionTest {
    @ParameterizedTest
    @ValueSource(strings = {"", "open", "open/WPA2-PSK", "open/WPA2-Enterprise"})
    void withoutAKeyItIsOpen(String offered) throws Stop {
        assertEquals("an open network", Protection.of("cafe", ways(offered), null, false).toString());
    }

    @ParameterizedTest
    @ValueSource(strings = {
        "", "WPA-PSK", "WPA2-PSK", "WPA-PSK/WPA2-PSK", "WPA2-PSK/WPA3-SAE", "open/WPA2-PSK",
    })
    void withAKeyItIsPreShared(String offered) throws Stop {
        assertEquals("a network with a pre-shared key",
                Protection.of("cafe", ways(offered), key(), false).toString());
    }

    @ParameterizedTest
    @ValueSource(strings = {"WPA-PSK", "WPA2-PSK", "WPA2-PSK/WPA3-SAE", "WPA2-PSK/WPA2-Enterprise"})
    void aMissingKeyIsExplained(String offered) {
        assertStops("cafe needs its key; write that into a file and name it: --key-file FILE",
                offered, null);
    }

    @Test
    void aKeyForAnOpenNetworkIsExplained() throws Stop {
        assertStops("cafe is open and takes no key; leave out --key-file", "open", key());
    }

    @ParameterizedTest
    @CsvSource({"WPA2-Enterprise", "WEP", "WPA3-SAE", "WPA-Enterprise/WPA2-Enterprise"})
    void whatCannotBeAddedIsExplainedWithAndWithoutAKey(String offered) throws Stop {
        String message = "cafe is protected by " + offered + ", and only open networks and those"
                + " with a pre-shared key can be added here; add it to the supplicant's"
                + " configuration, then try again";
        assertStops(message, offered, null);
        assertStops(message, offered, key());
    }

    @ParameterizedTest
    @ValueSource(strings = {"OWE", "open/OWE"})
    void underModernOweNeedsNoKey(String offered) throws Stop {
        assertEquals("an open network",
                Protection.of("cafe", ways(offered), null, true).toString());
    }

    @ParameterizedTest
    @ValueSource(strings = {"WPA3-SAE", "WPA2-PSK/WPA3-SAE"})
    void underModernSaeTakesAKey(String offered) throws Stop {
        assertEquals("a network with a pre-shared key",
                Protection.of("cafe", ways(offered), key(), true).toString());
        Stop stop = assertThrows(Stop.class,
                () -> Protection.of("cafe", ways(offered), null, true));
        assertEquals("cafe needs its key; write that into a file and name it: --key-file FILE",
                stop.getMessage());
    }

    @Test
    void underModernEnterpriseCannotBeAdded() {
        Stop stop = assertThrows(Stop.class,
                () -> Protection.of("cafe", ways("WPA2-Enterprise"), null, true));
        assertEquals("cafe is protected by WPA2-Enterprise, and only open networks and those with a"
                + " pre-shared key or an SAE password can be added here; add it to the"
                + " supplicant's configuration, then try again", stop.getMessage());
    }

    private static void assertStops(String message, String offered, Key key) {
        Stop stop = assertThrows(Stop.class, () -> Protection.of("cafe", ways(offered), key, false));
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
