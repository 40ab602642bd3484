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
    private final Duration patience;
    private final Supplier<SupplicantState> states;
    private String told = "";

    private Connection(Options options, Duration patience) {
        this.options = options;
        this.patience = patience;
        states = () -> SupplicantState.of(options.iface);
    }

    /** @param patience  how long it may take until it is complete */
    static void make(Options options, ChosenNetwork network, Duration patience, PrintStream out)
            throws Stop {
        Connection connection = new Connection(options, patience);
        SupplicantState last = Progress.during(out, "Connecting to " + options.ssid,
                tell -> connection.make(network, tell));
        if (!last.isConnectedTo(options.ssid))
            throw new Stop("%s is not connected after %d s, the last state was %s; see whether it is"
                    + " in range and its configuration is right, then try again", options.ssid,
                    patience.toSeconds(), last.onTheWayTo(options.ssid));
    }

    private SupplicantState make(ChosenNetwork network, Consumer<String> tell) throws Stop {
        next(tell);
        network.makeReady();
        if (!BWifiPlatformService.connectToNetwork0(options.iface, network.name))
            throw new Stop("the supplicant did not accept to connect to %s; see whether it answers:"
                    + " wpa_cli -i %s ping", options.ssid, options.iface);
        return await(tell);
    }

    /** The last state: connected, or what it was when the patience ended. */
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
