package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

class SupplicantStateTest {
    private static final String BSSID = "bssid=02:00:00:00:02:00\n";

    @ParameterizedTest
    @ValueSource(strings = {"INACTIVE", "SCANNING", "ASSOCIATING", "4WAY_HANDSHAKE"})
    void aStateOnTheWayHasTheSupplicantsNameForIt(String name) {
        SupplicantState state = state(BSSID + "ssid=cafe\nwpa_state=" + name + "\n");
        assertEquals(name, state.onTheWayTo("cafe"));
        assertFalse(state.isConnectedTo("cafe"));
    }

    @Test
    void completedIsConnected() {
        SupplicantState state = state(BSSID + "ssid=cafe\nid=0\nwpa_state=COMPLETED\n");
        assertEquals("COMPLETED", state.onTheWayTo("cafe"));
        assertTrue(state.isConnectedTo("cafe"));
    }

    @Test
    void completedOnAnotherNetworkIsNotConnected() {
        SupplicantState state = state(BSSID + "ssid=home\nid=0\nwpa_state=COMPLETED\n");
        assertEquals("COMPLETED on home", state.onTheWayTo("cafe"));
        assertFalse(state.isConnectedTo("cafe"));
    }

    @Test
    void theClientEscapesNames() {
        assertTrue(state("ssid=Caf\\xc3\\xa9\nwpa_state=COMPLETED\n").isConnectedTo("Café"));
    }

    @Test
    void aClientThatFailsLeavesItUnknown() {
        new StandIn().when("-iwlan0", "status").exit(255).play();
        assertEquals("UNKNOWN", SupplicantState.of("wlan0").onTheWayTo("cafe"));
    }

    private static SupplicantState state(String reply) {
        new StandIn().when("-iwlan0", "status").print(reply).play();
        return SupplicantState.of("wlan0");
    }
}
