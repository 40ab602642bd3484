package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.time.Duration;
import java.util.function.Consumer;
import java.util.function.Supplier;

/** Connects to a network and waits until the supplicant says that it is connected. */
final class Connection {
    private static final int PAUSE_MILLISECONDS = 50;

    private final Options options;
    private final String name;
    private final Supplier<SupplicantState> states;
    private final Duration patience;
    private String told = "";

    private Connection(Options options, String name, Supplier<SupplicantState> states,
            Duration patience) {
        this.options = options;
        this.name = name;
        this.states = states;
        this.patience = patience;
    }

    /** @param name  what the library calls the network */
    static void make(Options options, String name, Duration patience, PrintStream out)
            throws Stop {
        Connection connection = new Connection(
                options, name, () -> SupplicantState.of(options.iface), patience);
        SupplicantState last = Progress.during(
                out, "Connecting to " + options.ssid, connection::begin);
        if (last == null)
            throw new Stop("the supplicant did not accept to connect to %s; see whether it answers:"
                    + " wpa_cli -i %s ping", options.ssid, options.iface);
        if (!last.isConnectedTo(options.ssid))
            throw new Stop("%s is not connected after %d s, the last state was %s; see whether it is"
                    + " in range and its configuration is right, then try again", options.ssid,
                    patience.toSeconds(), last.onTheWayTo(options.ssid));
    }

    /** The last state: connected, or what it was when the patience ended. Null: not even begun. */
    private SupplicantState begin(Consumer<String> tell) {
        next(tell);
        return BWifiPlatformService.connectToNetwork0(options.iface, name) ? await(tell) : null;
    }

    private SupplicantState await(Consumer<String> tell) {
        long start = System.nanoTime();
        SupplicantState state = next(tell);
        while (!state.isConnectedTo(options.ssid)
                && System.nanoTime() - start < patience.toNanos() && pause())
            state = next(tell);
        return state;
    }

    private SupplicantState next(Consumer<String> tell) {
        SupplicantState state = states.get();
        String now = state.onTheWayTo(options.ssid);
        if (!now.equals(told))
            tell.accept(now);
        told = now;
        return state;
    }

    private static boolean pause() {
        try {
            Thread.sleep(PAUSE_MILLISECONDS);
            return true;
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            return false;
        }
    }
}
