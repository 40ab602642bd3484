package com.quorvel.platwifi;

import static com.quorvel.platwifi.BWifiPlatformService.getCurrentNetwork0;
import static com.quorvel.platwifi.BWifiPlatformService.getDaemonStatus0;
import static com.quorvel.platwifi.Natives.ofHome;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.Timeout;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.NullAndEmptySource;
import org.junit.jupiter.params.provider.ValueSource;

import java.util.List;

/** The state of the supplicant and the status of networks. */
class StatusTest {
    @BeforeEach
    void load() {
        Natives.loadHome();
    }

    @AfterEach
    void unload() {
        BWifiPlatformService.unloadWifiSettings0();
    }

    private static void answer(String status) {
        new StandIn().when("-iwlan0", "status").print(StandIn.bytes(status)).play();
    }

    @ParameterizedTest
    @CsvSource({
        "INACTIVE, 2", "SCANNING, 3", "ASSOCIATING, 4", "ASSOCIATED, 5", "4WAY_HANDSHAKE, 6",
        "GROUP_HANDSHAKE, 7", "COMPLETED, 8", "DISCONNECTED, 1", "SOMETHING, 0",
    })
    void theStateIsTold(String state, int code) {
        answer("wpa_state=" + state + "\n");
        assertEquals(code, getDaemonStatus0("wlan0"));
        assertEquals(code, getDaemonStatus0("whichever"));
    }

    @Test
    void theStateIsUnknownWithoutAnswerAndWithoutInterface() {
        answer("wpa_state=COMPLETED\n");
        assertEquals(0, getDaemonStatus0(null));
        assertEquals(List.of(), StandIn.calls());
        new StandIn().when("*").exit(255).play();
        assertEquals(0, getDaemonStatus0("wlan0"));
    }

    @Test
    void theCurrentNetworkIsNamed() {
        answer("bssid=02:00:00:00:01:00\nssid=home\nwpa_state=COMPLETED\n");
        assertEquals("home", getCurrentNetwork0("wlan0"));
        answer("ssid=elsewhere\nwpa_state=COMPLETED\n");
        assertNull(getCurrentNetwork0("wlan0"));
    }

    @ParameterizedTest
    @NullAndEmptySource
    @ValueSource(strings = {"fourteen-chars", "\uD800\uD800\uDCE9 and so on"})
    void anInterfaceThatCannotBeIsOnNoNetwork(String iface) {
        answer("ssid=home\nwpa_state=COMPLETED\n");
        assertNull(getCurrentNetwork0(iface));
        assertEquals(List.of(), StandIn.calls());
    }

    @ParameterizedTest
    @ValueSource(strings = {"Café", "网络", "😀", "caf\uDCE9", "\uDCFF\uDCFE"})
    void theCurrentNetworkMayHaveAnyName(String ssid) {
        BWifiPlatformService.unloadWifiSettings0();
        new StandIn().settings().play();
        BWifiPlatformService.getWifiAdapters0();
        new StandIn().when("-iwlan0", "add_network").print("7\n")
                .when("-iwlan0", "status").print(StandIn.bytes("ssid=" + ssid + "\n"))
                .when("*").print("OK\n").play();
        BWifiPlatformService.addNetwork0("wlan0", ssid);
        assertEquals(ssid, getCurrentNetwork0("wlan0"));
    }

    /** Takes up to 5 s, because the status is refreshed only every 5 s. */
    @Test
    @Timeout(600)
    void theStatusOfANetworkIsRefreshed() throws InterruptedException {
        new StandIn()
                .when("-iwlan0", "list_networks").print("header\n0\thome\tany\t[CURRENT]\n")
                .when("-iwlan0", "scan_results").print(StandIn.HEADER
                        + "02:00:00:00:01:00\t2437\t-30\t[ESS]\thome\n").play();
        while (!ofHome("getNetworkStatus0").equals(4))
            Thread.sleep(20);
        assertEquals(List.of("-iwlan0 list_networks", "-iwlan0 scan_results"), StandIn.calls());
        assertEquals(6, ofHome("getChannel0"));
        assertEquals(100, ofHome("getStrength0"));
        assertEquals("02:00:00:00:01:00", ofHome("getBssid0"));
        assertEquals(4, ofHome("getNetworkStatus0"));
    }
}
