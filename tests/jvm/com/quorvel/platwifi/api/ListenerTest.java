package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

import java.util.List;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;

class ListenerTest extends AdapterTest {
    private static final String CONNECTED =
            "CTRL-EVENT-CONNECTED - Connection to 02:00:00:00:01:00 completed [id=0 id_str=]";
    private static final String DISCONNECTED =
            "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=15";

    /** Keeps what it gets. */
    private static final class Kept implements WifiListener {
        final LinkedBlockingQueue<WifiEvent> events = new LinkedBlockingQueue<>();
        final CompletableFuture<WifiException> end = new CompletableFuture<>();

        @Override
        public void onEvent(WifiEvent event) {
            events.add(event);
        }

        @Override
        public void onEnd(WifiException failure) {
            end.complete(failure);
        }

        WifiEvent next() {
            try {
                return events.poll(1, TimeUnit.MINUTES);
            } catch (InterruptedException e) {
                throw new IllegalStateException(e);
            }
        }
    }

    private Kept added(Wifi to) {
        Kept kept = new Kept();
        to.addListener(kept);
        return kept;
    }

    @Test
    void getsEachEventWithItsMembers() {
        Kept kept = added(wifi);
        host.socket.send("Trying to associate with 02:00:00:00:01:00 (SSID='caf\\xc3\\xa9' freq=2412 MHz)",
                CONNECTED, DISCONNECTED);
        assertEquals(WifiEvent.Kind.ASSOCIATING, kept.next().kind());
        assertEquals("café", kept.next().ssid().get().text());
        WifiEvent last = kept.next();
        assertEquals(WifiEvent.Kind.DISCONNECTED, last.kind());
        assertEquals(15, last.code().getAsInt());
        assertTrue(last.meaning().contains("handshake"), last::toString);
        assertEquals("02:00:00:00:01:00", last.bssid().get());
    }

    @Test
    void twoObjectsForOneAdapterBothGetEvents() {
        try (Wifi other = Wifi.open()) {
            Kept one = added(wifi);
            Kept two = added(other);
            host.socket.send(CONNECTED);
            assertEquals(WifiEvent.Kind.CONNECTED, one.next().kind());
            assertEquals(WifiEvent.Kind.CONNECTED, two.next().kind());
        }
        assertEquals(List.of("platwifi-events wlan0"), Host.threads());
    }

    @Test
    void aFaultOfOneListenerDoesNotConcernOthers() {
        LinkedBlockingQueue<Throwable> faults = new LinkedBlockingQueue<>();
        Thread.UncaughtExceptionHandler before = Thread.getDefaultUncaughtExceptionHandler();
        Thread.setDefaultUncaughtExceptionHandler((thread, fault) -> faults.add(fault));
        try {
            wifi.addListener(event -> {
                throw new IllegalStateException("mine");
            });
            Kept kept = added(wifi);
            host.socket.send(CONNECTED, DISCONNECTED);
            kept.next();
            assertEquals(WifiEvent.Kind.DISCONNECTED, kept.next().kind());
            assertEquals("mine", faults.poll().getMessage());
        } finally {
            Thread.setDefaultUncaughtExceptionHandler(before);
        }
    }

    @Test
    void endsWithTheSupplicant() {
        Kept kept = added(wifi);
        host.socket.close();
        assertEquals(WifiEvent.Kind.SUPPLICANT_LOST, kept.next().kind());
        assertEquals(Reason.SUPPLICANT_GONE, kept.end.join().reason());
        Host.await(() -> Host.threads().isEmpty());
        Host.failure(Reason.FAILED, () -> wifi.addListener(kept));
    }

    @Test
    void theThreadEndsWithTheLastListener() {
        Kept one = added(wifi);
        Kept two = added(wifi);
        wifi.removeListener(one);
        host.socket.send(CONNECTED);
        assertEquals(WifiEvent.Kind.CONNECTED, two.next().kind());
        assertTrue(one.events.isEmpty());
        wifi.removeListener(two);
        assertEquals(List.of(), Host.threads());
        Kept again = added(wifi);
        host.socket.send(DISCONNECTED);
        assertEquals(WifiEvent.Kind.DISCONNECTED, again.next().kind());
    }

    @Test
    void closeEndsTheThread() {
        Kept kept = added(wifi);
        wifi.close();
        assertEquals(List.of(), Host.threads());
        Host.failure(Reason.CLOSED, () -> wifi.addListener(kept));
        assertTrue(!kept.end.isDone(), "it was not the supplicant that ended");
    }

    @Test
    void aListenerMayCloseTheWifi() {
        CompletableFuture<Void> closed = new CompletableFuture<>();
        wifi.addListener(event -> {
            wifi.close();
            closed.complete(null);
        });
        host.socket.send(CONNECTED);
        closed.join();
        Host.await(() -> Host.threads().isEmpty());
    }
}
