package com.quorvel.platwifi;

import static com.quorvel.platwifi.BWifiPlatformService.addNetwork0;
import static com.quorvel.platwifi.BWifiPlatformService.connectToNetwork0;
import static com.quorvel.platwifi.BWifiPlatformService.disconnectFromNetwork0;
import static com.quorvel.platwifi.BWifiPlatformService.getNetworkDatabaseSsids0;
import static com.quorvel.platwifi.BWifiPlatformService.getWifiAdapters0;
import static com.quorvel.platwifi.BWifiPlatformService.removeNetwork0;
import static com.quorvel.platwifi.BWifiPlatformService.roamNetworks0;
import static com.quorvel.platwifi.BWifiPlatformService.unloadWifiSettings0;
import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.NullAndEmptySource;
import org.junit.jupiter.params.provider.ValueSource;

import java.util.List;

class NetworkOperationsTest {
    private static final String[] HOME_AND_WORK = {"0\thome\tany\t", "3\twork\tany\t"};

    @AfterEach
    void unload() {
        assertTrue(unloadWifiSettings0());
    }

    /** Loads these networks. The test scripts the replies to later commands. */
    private static void load(String... networks) {
        unloadWifiSettings0();
        new StandIn().settings(networks).play();
        assertArrayEquals(new String[] {"wlan0"}, getWifiAdapters0());
    }

    private static StandIn worksFromNowOn() {
        return new StandIn().when("-iwlan0", "add_network").print("7\n")
                .when("*").print("OK\n");
    }

    @Test
    void theConfiguredNetworksAreListedTheLastOneFirst() {
        load(HOME_AND_WORK);
        assertArrayEquals(new String[] {"work", "home"}, getNetworkDatabaseSsids0("wlan0"));
        assertArrayEquals(new String[] {"work", "home"}, getNetworkDatabaseSsids0(null));
    }

    @Test
    void withoutAnAdapterThereIsNoList() {
        unloadWifiSettings0();
        new StandIn().when("*").exit(255).play();
        assertArrayEquals(new String[0], getWifiAdapters0());
        assertArrayEquals(new String[0], getNetworkDatabaseSsids0("wlan0"));
        assertFalse(connectToNetwork0("wlan0", "home"));
    }

    @Test
    void aNetworkIsAddedConnectedDisconnectedAndRemoved() {
        load(HOME_AND_WORK);
        worksFromNowOn().play();
        assertTrue(addNetwork0("wlan0", "new"));
        assertFalse(addNetwork0("wlan0", "new"));
        assertArrayEquals(new String[] {"new", "work", "home"}, getNetworkDatabaseSsids0("wlan0"));
        assertTrue(connectToNetwork0("wlan0", "new"));
        assertTrue(disconnectFromNetwork0("wlan0", "new"));
        assertTrue(connectToNetwork0("wlan0", "work"));
        assertTrue(removeNetwork0("wlan0", "new"));
        assertArrayEquals(new String[] {"work", "home"}, getNetworkDatabaseSsids0("wlan0"));
        assertEquals(List.of("-iwlan0 add_network", "-iwlan0 set_network 7 ssid \"new\"",
                "-iwlan0 enable_network 7", "-iwlan0 select 7", "-iwlan0 disconnect",
                "-iwlan0 reassociate", "-iwlan0 select 3", "-iwlan0 remove_network 7"),
                StandIn.calls());
    }

    @Test
    void roamingEnablesEveryNetwork() {
        load(HOME_AND_WORK);
        worksFromNowOn().play();
        assertTrue(roamNetworks0("wlan0"));
        assertEquals(List.of("-iwlan0 disconnect", "-iwlan0 set_network 3 disabled 0",
                "-iwlan0 set_network 0 disabled 0", "-iwlan0 reassociate"), StandIn.calls());
    }

    @Test
    void aRefusalMeansFalse() {
        load(HOME_AND_WORK);
        new StandIn().when("*").print("FAIL\n").exit(1).play();
        assertFalse(addNetwork0("wlan0", "new"));
        assertFalse(removeNetwork0("wlan0", "home"));
        assertFalse(connectToNetwork0("wlan0", "home"));
        assertFalse(disconnectFromNetwork0("wlan0", "home"));
        assertFalse(roamNetworks0("wlan0"));
        assertArrayEquals(new String[] {"work", "home"}, getNetworkDatabaseSsids0("wlan0"));
    }

    @ParameterizedTest
    @NullAndEmptySource
    @ValueSource(strings = {"unknown", "Home", "\uD800", "\uDCE9", "网络", "😀"})
    void anUnknownNetworkIsAlreadyGone(String ssid) {
        load(HOME_AND_WORK);
        assertTrue(removeNetwork0("wlan0", ssid));
        assertTrue(disconnectFromNetwork0("wlan0", ssid));
        assertFalse(connectToNetwork0("wlan0", ssid));
    }

    @ParameterizedTest
    @NullAndEmptySource
    @ValueSource(strings = {"fourteen-chars", "\uD800\uD800\uDCE9 and so on"})
    void anInterfaceThatCannotBeIsFalseWithoutACommand(String iface) {
        load(HOME_AND_WORK);
        worksFromNowOn().play();
        assertFalse(addNetwork0(iface, "new"));
        assertFalse(addNetwork0(iface, null));
        assertFalse(removeNetwork0(iface, "home"));
        assertFalse(connectToNetwork0(iface, "home"));
        assertFalse(disconnectFromNetwork0(iface, "home"));
        assertFalse(roamNetworks0(iface));
        assertEquals(List.of(), StandIn.calls());
    }

    @ParameterizedTest
    @ValueSource(strings = {"wlan\uDCE9", "无线", "😀"})
    void anyInterfaceIsNamedToTheClient(String iface) {
        load(HOME_AND_WORK);
        worksFromNowOn().play();
        assertTrue(connectToNetwork0(iface, "work"));
        assertEquals(List.of(StandIn.recorded("-i" + iface + " select 3")), StandIn.calls());
    }

    @ParameterizedTest
    @ValueSource(strings = {"caf\uDCE9", "Café", "网络", "😀", "\uDCFF\uDCFE", "a\"b\\", " "})
    void anySsidArrivesWhole(String ssid) {
        load();
        worksFromNowOn().play();
        assertTrue(addNetwork0("wlan0", ssid));
        assertEquals(StandIn.recorded("-iwlan0 set_network 7 ssid \"" + ssid + "\""),
                StandIn.calls().get(1));
        assertArrayEquals(new String[] {ssid}, getNetworkDatabaseSsids0("wlan0"));
        assertTrue(connectToNetwork0("wlan0", ssid));
        assertFalse(addNetwork0("wlan0", ssid));
        assertTrue(removeNetwork0("wlan0", ssid));
        assertArrayEquals(new String[0], getNetworkDatabaseSsids0("wlan0"));
    }

    @Test
    void theNextCallAfterUnloadingLoadsAgain() {
        load(HOME_AND_WORK);
        assertTrue(unloadWifiSettings0());
        assertTrue(unloadWifiSettings0());
        new StandIn().settings("1\tother\tany\t").play();
        assertArrayEquals(new String[] {"other"}, getNetworkDatabaseSsids0("wlan0"));
    }
}
