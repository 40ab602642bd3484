package demo;

import com.quorvel.platwifi.api.Connection;
import com.quorvel.platwifi.api.Link;
import com.quorvel.platwifi.api.Ssid;
import com.quorvel.platwifi.api.Wifi;
import com.quorvel.platwifi.api.WifiFuture;
import com.quorvel.platwifi.api.WifiState;

import java.io.PrintStream;
import java.time.Duration;
import java.util.Optional;
import java.util.function.Consumer;

/** Connects and disconnects, and shows each state on the way. */
final class Connecting {
    private static final int PAUSE_MILLISECONDS = 50;

    private final Wifi wifi;
    private final Ssid ssid;
    private final Duration timeout;
    private final PrintStream out;
    private String shown;

    /** @param timeout  the longest wait for a state */
    Connecting(Wifi wifi, Ssid ssid, Duration timeout, PrintStream out) {
        this.wifi = wifi;
        this.ssid = ssid;
        this.timeout = timeout;
        this.out = out;
    }

    /**
     * The state of the supplicant, with the network of a connection.
     *
     * @param own  the network that is not named; may be null
     */
    static String state(Wifi wifi, Ssid own) {
        Optional<Link> link = wifi.link();
        if (link.isEmpty())
            return name(wifi.state());
        Ssid ssid = link.get().ssid();
        return name(WifiState.COMPLETED) + (ssid.equals(own) ? "" : " on " + ssid);
    }

    void connect() throws Stop {
        Progress.during(out, "Connecting to " + ssid, show -> {
            showFirstState(show);
            WifiFuture<Connection> connecting = wifi.connect(ssid, timeout);
            while (!connecting.isDone()) {
                pause(); // an interruption ends the program, and Wifi.close() what runs
                showState(show);
            }
            Connection made = connecting.get();
            showState(show);
            return made;
        });
    }

    void disconnect() throws Stop {
        Progress.during(out, "Disconnecting from " + ssid, show -> {
            showFirstState(show);
            wifi.disconnect();
            awaitDisconnection();
            showState(show);
            return null;
        });
    }

    private void awaitDisconnection() throws Stop {
        long start = System.nanoTime();
        while (wifi.link().isPresent()) {
            if (System.nanoTime() - start >= timeout.toNanos())
                throw new Stop("the supplicant is %s %d s after the command to disconnect; see"
                        + " whether another program connects it", state(wifi, null), timeout.toSeconds());
            pause();
        }
    }

    private void showFirstState(Consumer<String> show) {
        shown = "";
        showState(show);
    }

    /** Shows the state if it is another one. An unknown one passes quickly, such as an authentication. */
    private void showState(Consumer<String> show) {
        String now = state(wifi, ssid);
        if (!now.equals(shown) && !now.equals(name(WifiState.UNKNOWN))) {
            show.accept(now);
            shown = now;
        }
    }

    /** A supplicant that looks for no network is idle. */
    private static String name(WifiState state) {
        return state == WifiState.INACTIVE ? "IDLE" : state.word();
    }

    private static void pause() throws Stop {
        try {
            Thread.sleep(PAUSE_MILLISECONDS);
        } catch (InterruptedException e) {
            throw Stop.interrupted();
        }
    }
}
