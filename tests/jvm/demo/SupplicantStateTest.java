package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.BWifiPlatformService;
import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

class SupplicantStateTest {
    private static final String BSSID = "bssid=02:00:00:00:02:00\n";

    @BeforeEach
    void loadTheNetworks() {
        BWifiPlatformService.unloadWifiSettings0();
        new StandIn().settings("0\tcafe\tany\t", "1\thome\tany\t",
                "2\tCaf\\xc3\\xa9\tany\t").play();
        BWifiPlatformService.getWifiAdapters0();
    }

    @AfterEach
    void unload() {
        BWifiPlatformService.unloadWifiSettings0();
    }

    @ParameterizedTest
    @CsvSource({
        "DISCONNECTED, DISCONNECTED", "INACTIVE, IDLE", "SCANNING, SCANNING",
        "ASSOCIATING, ASSOCIATING", "ASSOCIATED, ASSOCIATED", "4WAY_HANDSHAKE, 4WAY_HANDSHAKE",
        "GROUP_HANDSHAKE, GROUP_HANDSHAKE", "SOMETHING, UNKNOWN",
    })
    void aStateBeforeTheConnectionIsNamed(String supplicants, String name) {
        SupplicantState state = state(BSSID + "ssid=cafe\nwpa_state=" + supplicants + "\n");
        assertEquals(name, state.nameWhileConnectingTo("cafe"));
        assertEquals(name, state.toString());
        assertEquals(!name.equals("UNKNOWN"), state.isKnown());
        assertFalse(state.isConnected());
        assertFalse(state.isConnectedTo("cafe"));
    }

    @Test
    void completedIsConnected() {
        SupplicantState state = state(BSSID + "ssid=cafe\nid=0\nwpa_state=COMPLETED\n");
        assertEquals("COMPLETED", state.nameWhileConnectingTo("cafe"));
        assertEquals("COMPLETED on cafe", state.toString());
        assertTrue(state.isConnectedTo("cafe"));
    }

    @Test
    void completedOnAnotherNetworkIsNotConnected() {
        SupplicantState state = state(BSSID + "ssid=home\nid=0\nwpa_state=COMPLETED\n");
        assertEquals("COMPLETED on home", state.nameWhileConnectingTo("cafe"));
        assertTrue(state.isConnected());
        assertFalse(state.isConnectedTo("cafe"));
    }

    @Test
    void completedOnANetworkThatIsNotConfiguredHasNoName() {
        SupplicantState state = state("ssid=elsewhere\nwpa_state=COMPLETED\n");
        assertEquals("COMPLETED", state.nameWhileConnectingTo("cafe"));
        assertFalse(state.isConnectedTo("cafe"));
    }

    /** The supplicant changes networks between the queries for the network and for the state. */
    @Test
    void theStateIsThatOfTheNetworkOrALaterOne() {
        new StandIn().when("-iwlan0", "status").print("ssid=home\nwpa_state=COMPLETED\n")
                .then().print("ssid=cafe\nwpa_state=ASSOCIATED\n")
                .then().print("ssid=cafe\nwpa_state=ASSOCIATING\n").play();
        assertFalse(SupplicantState.of("wlan0").isConnected());
    }

    @Test
    void theClientEscapesNames() {
        assertTrue(state("ssid=Caf\\xc3\\xa9\nwpa_state=COMPLETED\n").isConnectedTo("Café"));
    }

    @Test
    void aClientThatFailsMeansUnknown() {
        new StandIn().when("-iwlan0", "status").exit(255).play();
        assertEquals("UNKNOWN", SupplicantState.of("wlan0").nameWhileConnectingTo("cafe"));
    }

    private static SupplicantState state(String reply) {
        new StandIn().when("-iwlan0", "status").print(reply).play();
        return SupplicantState.of("wlan0");
    }
}
