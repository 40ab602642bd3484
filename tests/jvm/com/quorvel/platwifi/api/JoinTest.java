package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;

import java.time.Duration;
import java.util.List;
import java.util.concurrent.CancellationException;
import java.util.concurrent.TimeUnit;

class JoinTest extends AdapterTest {
    private static final String TRYING =
            "Trying to associate with 02:00:00:00:01:00 (SSID='cafe' freq=2412 MHz)";
    private static final String WRONG_KEY =
            "WPA: 4-Way Handshake failed - pre-shared key may be incorrect";

    private final Passphrase secret = Host.secret();

    @Override
    String accessPoints() {
        return Host.accessPoint("cafe", Host.WPA2);
    }

    private static StandIn connecting() {
        return new StandIn().when("-iwlan0", "status").print(Host.IDLE).then().print(Host.IDLE)
                .then().print(Host.statusOn("cafe", 1));
    }

    /** Joins cafe, up to the wait for the connection. */
    private WifiFuture<Connection> joining() {
        WifiFuture<Connection> joining = wifi.join("cafe", secret);
        host.socket.finishScan();
        host.socket.awaitListener();
        Host.awaitCall("select 1");
        return joining;
    }

    @Test
    void savesANetworkWhenTheConnectionStands() {
        play(connecting());
        Connection made = joining().get();
        assertEquals(Ssid.of("cafe"), made.ssid());
        assertEquals(Security.WPA2_PSK, made.security().get());
        assertEquals("192.0.2.7", made.link().get().address().get());
        assertEquals(-40, made.link().get().signal().getAsInt());
        assertEquals(54, made.link().get().rate().getAsInt());
        assertTrue(Host.changes().containsAll(List.of("set_network 1 psk \"" + Host.SECRET + "\"",
                "select 1", "save_config")), Host.changes()::toString);
        assertTrue(secret.isClosed());
    }

    @Test
    void namesTheCauseAndTakesTheNetworkBack() {
        WifiFuture<Connection> joining = joining();
        host.socket.send(TRYING, WRONG_KEY);
        WifiException failure = Host.failure(Reason.WRONG_KEY, joining::get);
        assertEquals("cafe is not connected: the access point refuses the key; "
                + Reason.WRONG_KEY.nextStep(), failure.getMessage());
        assertTakenBack();
    }

    @Test
    void endsWhenItIsCancelled() {
        WifiFuture<Connection> joining = joining();
        assertTrue(joining.cancel(true));
        assertThrows(CancellationException.class, joining::get);
        Host.await(() -> Host.threads().isEmpty());
        assertTakenBack();
    }

    @Test
    void aFailedJoinOfAConfiguredNetworkLeavesItAsItWas() {
        WifiFuture<Connection> joining = wifi.join(Network.builder("home").priority(7).build(),
                Duration.ofMinutes(1));
        host.socket.awaitListener();
        Host.awaitCall("select 0");
        assertTrue(Host.changes().contains("set_network 0 priority 7"), Host.changes()::toString);
        joining.cancel(true);
        Host.await(() -> Host.threads().isEmpty());
        assertTrue(Host.changes().contains("reconfigure"), Host.changes()::toString);
        assertEquals(0, wifi.network("home").get().priority());
    }

    @Test
    void endsWithItsTimeOutByTheFuture() {
        WifiFuture<Connection> joining = joining();
        assertEquals("there is no result after 1 ms; wait longer, or end the operation with cancel()",
                Host.failure(Reason.TIMED_OUT, () -> joining.get(1, TimeUnit.MILLISECONDS))
                        .getMessage());
        assertFalse(joining.isDone(), "it goes on");
        joining.orTimeout(1, TimeUnit.MILLISECONDS);
        Host.await(() -> Host.threads().isEmpty());
        assertTakenBack();
    }

    @Test
    void endsWhenTheWifiIsClosed() {
        WifiFuture<Connection> joining = joining();
        wifi.close();
        assertEquals(List.of(), Host.threads());
        Host.failure(Reason.CLOSED, joining::get);
        assertTakenBack();
        Host.failure(Reason.CLOSED, () -> wifi.join("cafe"));
    }

    @Test
    void endsByADisconnection() {
        WifiFuture<Connection> joining = joining();
        wifi.disconnect();
        assertThrows(CancellationException.class, joining::get);
        assertTakenBack();
        List<String> calls = StandIn.calls();
        assertTrue(calls.lastIndexOf("-iwlan0 disconnect") > calls.lastIndexOf("-iwlan0 reassociate"),
                calls::toString);
    }

    @Test
    void tellsThatNoAccessPointIsInRange() {
        WifiFuture<Connection> joining = wifi.join("caf", secret);
        host.socket.awaitListener();
        for (int scan = 0; scan < 3; ++scan)
            host.socket.send("CTRL-EVENT-SCAN-RESULTS ");
        String message = Host.failure(Reason.NOT_IN_RANGE, joining::get).getMessage();
        assertTrue(message.contains("(did you mean cafe?)"), message);
        assertEquals(List.of(), Host.changes());
        assertTrue(secret.isClosed());
    }

    @Test
    void doesNotAskForAMissingPassphrase() {
        WifiFuture<Connection> joining = wifi.join("cafe");
        host.socket.finishScan();
        assertEquals("cafe is not joined, it needs: passphrase() of Network.Builder",
                Host.failure(Reason.FAILED, joining::get).getMessage());
        assertEquals(List.of(), Host.changes());
    }

    @Test
    void waitsForItsTurn() {
        WifiFuture<Connection> first = joining();
        try (Wifi other = Wifi.open("wlan0")) {
            WifiFuture<Connection> second = other.connect("home");
            second.cancel(true);
            Host.await(() -> Host.threads().equals(List.of("platwifi-join wlan0")));
            assertFalse(StandIn.calls().contains("-iwlan0 select 0"));
        }
        first.cancel(true);
    }

    @Test
    void connectsToAConfiguredNetworkOnly() {
        Host.failure(Reason.FAILED, wifi.connect("cafe")::get);
        play(new StandIn().when("-iwlan0", "status").print(Host.statusOn("home", 0)));
        assertEquals(Ssid.of("home"), wifi.connect("home").get().ssid());
        assertEquals(WifiState.COMPLETED, wifi.state());
    }

    @Test
    void failsWhenTheSupplicantEnds() {
        WifiFuture<Connection> joining = joining();
        host.socket.close();
        Host.failure(Reason.SUPPLICANT_GONE, joining::get);
    }

    private void assertTakenBack() {
        Host.await(() -> Host.threads().isEmpty());
        assertTrue(Host.changes().contains("reconfigure"), Host.changes()::toString);
        assertFalse(Host.changes().contains("save_config"), Host.changes()::toString);
        assertEquals(List.of(Ssid.of("home")), List.of(wifiNetworks()));
        assertTrue(secret.isClosed());
    }

    private static Ssid[] wifiNetworks() {
        try (Wifi fresh = Wifi.open("wlan0")) {
            return fresh.networks().stream().map(Network::ssid).toArray(Ssid[]::new);
        }
    }
}
