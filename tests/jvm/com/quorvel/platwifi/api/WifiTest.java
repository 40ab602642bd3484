package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CompletableFuture;
import java.util.stream.Collectors;

/** Opening, scanning, the state, and many threads. */
class WifiTest extends AdapterTest {
    private static final int THREADS = 8;
    private static final int ROUNDS = 20;

    @Override
    String accessPoints() {
        return Host.accessPoint("cafe", "[WPA2-PSK+SAE-CCMP][ESS]")
                + "02:00:00:00:02:00\t5180\t-30\t[ESS]\t\n"
                + "02:00:00:00:03:00\t2437\t-90\t[WPA2-FILS-SHA256-CCMP][ESS]\tcaf\\xe9\\x00\n";
    }

    @Test
    void opensTheFirstAdapter() {
        try (Wifi first = Wifi.open()) {
            assertEquals("wlan0", first.adapter());
            assertEquals(List.of("wlan0"), first.adapters());
        }
    }

    @Test
    void doesNotOpenAnAdapterThatIsNotServed() {
        String message = Host.failure(Reason.FAILED, () -> Wifi.open("wlan7")).getMessage();
        assertTrue(message.startsWith("the supplicant does not serve wlan7; "), message);
        Host.failure(Reason.WRONG_USE, () -> Wifi.open("a-name-that-is-far-too-long"));
        Host.failure(Reason.WRONG_USE, () -> Wifi.open(""));
    }

    @Test
    void listsAccessPointsTheStrongestFirst() {
        WifiFuture<List<AccessPoint>> scanning = wifi.startScan();
        host.socket.finishScan();
        List<AccessPoint> found = scanning.get();
        assertEquals(List.of("(hidden) 02:00:00:00:02:00 -30 dBm open",
                "cafe 02:00:00:00:01:00 -40 dBm WPA2-PSK/WPA3-SAE",
                "caf\\xe9\\x00 02:00:00:00:03:00 -90 dBm other"),
                found.stream().map(AccessPoint::toString).collect(Collectors.toList()));
        assertEquals(36, found.get(0).channel());
        assertEquals(100, found.get(1).percent());
        assertEquals("FILS", found.get(2).offered());
        assertEquals(5, found.get(2).ssid().bytes().length);
    }

    @Test
    void aScanCanBeCancelled() {
        WifiFuture<List<AccessPoint>> scanning = wifi.startScan();
        host.socket.awaitListener();
        scanning.cancel(true);
        assertThrows(CancellationException.class, scanning::get);
        Host.await(() -> Host.threads().isEmpty());
    }

    @Test
    void closeEndsAScanOfAnotherThread() {
        CompletableFuture<Object> scanning = CompletableFuture.supplyAsync(wifi::scan);
        host.socket.awaitListener();
        wifi.close();
        Host.failure(Reason.CLOSED, () -> {
            try {
                scanning.join();
            } catch (java.util.concurrent.CompletionException e) {
                throw e.getCause();
            }
        });
        Host.failure(Reason.CLOSED, wifi::state);
    }

    @Test
    void anInterruptEndsTheWaitAlone() throws Exception {
        WifiFuture<List<AccessPoint>> scanning = wifi.startScan();
        Thread.currentThread().interrupt();
        Host.failure(Reason.INTERRUPTED, scanning::get);
        assertTrue(Thread.interrupted(), "it is set again");
        host.socket.finishScan();
        assertEquals(3, scanning.join().size());
    }

    @Test
    void reportsTheStateAndTheLink() {
        assertEquals(WifiState.INACTIVE, wifi.state());
        assertTrue(wifi.link().isEmpty());
        play(new StandIn().when("-iwlan0", "status").print(Host.statusOn("home", 0)));
        Link link = wifi.link().get();
        assertEquals("home 02:00:00:00:01:00 -40 dBm", link.toString());
        assertEquals(1, link.channel().getAsInt());
        assertEquals("WPA2-PSK", link.keyManagement());
    }

    @ParameterizedTest
    @CsvSource({
        "DISCONNECTED, DISCONNECTED", "INACTIVE, INACTIVE", "SCANNING, SCANNING",
        "ASSOCIATING, ASSOCIATING", "ASSOCIATED, ASSOCIATED", "4WAY_HANDSHAKE, FOUR_WAY_HANDSHAKE",
        "GROUP_HANDSHAKE, GROUP_HANDSHAKE", "AUTHENTICATING, UNKNOWN", "INTERFACE_DISABLED, UNKNOWN",
    })
    void aStateBeforeTheConnectionHasNoLink(String word, WifiState state) {
        play(new StandIn().when("-iwlan0", "status")
                .print("bssid=02:00:00:00:01:00\nssid=cafe\nwpa_state=" + word + "\n"));
        assertEquals(state, wifi.state());
        assertEquals(state == WifiState.UNKNOWN ? "UNKNOWN" : word, wifi.state().word());
        assertTrue(wifi.link().isEmpty());
    }

    @Test
    void theNameOfALinkHasItsEscapesDecoded() {
        play(new StandIn().when("-iwlan0", "status").print(Host.statusOn("Caf\\xc3\\xa9", 0)));
        assertEquals(WifiState.COMPLETED, wifi.state());
        assertEquals(Ssid.of("Café"), wifi.link().get().ssid());
    }

    @Test
    void aClientThatFailsIsReported() {
        play(new StandIn().when("-iwlan0", "status").exit(255));
        Host.failure(Reason.FAILED, wifi::state);
        Host.failure(Reason.FAILED, wifi::link);
    }

    @Test
    void roams() {
        wifi.roam();
        assertTrue(Host.changes().contains("reassociate"), Host.changes()::toString);
    }

    @Test
    void manyThreadsMayUseOneObjectAndOthers() {
        List<CompletableFuture<Void>> all = new ArrayList<>();
        try (Wifi other = Wifi.open("wlan0")) {
            for (int i = 0; i < THREADS; ++i) {
                Wifi used = i % 2 == 0 ? wifi : other;
                all.add(CompletableFuture.runAsync(() -> use(used)));
            }
            all.forEach(CompletableFuture::join);
        }
    }

    private static void use(Wifi wifi) {
        for (int i = 0; i < ROUNDS; ++i) {
            WifiListener listener = event -> {};
            wifi.addListener(listener);
            assertEquals(WifiState.INACTIVE, wifi.state());
            assertEquals(1, wifi.networks().size());
            wifi.removeListener(listener);
        }
    }
}
