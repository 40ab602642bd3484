package demo;

import java.io.PrintStream;
import java.time.Duration;
import java.util.function.Consumer;
import java.util.function.Predicate;

/** Connects and disconnects, and waits until the supplicant reports the new state. */
final class Connection {
    private static final int PAUSE_MILLISECONDS = 50;

    private final Options options;
    private final Duration timeout;
    private final PrintStream out;
    private String shown;

    /** @param timeout  the longest wait for a state */
    Connection(Options options, Duration timeout, PrintStream out) {
        this.options = options;
        this.timeout = timeout;
        this.out = out;
    }

    void make(ChosenNetwork network) throws Stop {
        SupplicantState last = Progress.during(out, "Connecting to " + options.ssid(), show -> {
            begin(show);
            network.connect();
            return await(state -> state.isConnectedTo(options.ssid()), show);
        });
        if (!last.isConnectedTo(options.ssid()))
            throw new Stop("%s is not connected after %d s, the last state was %s; see whether it"
                    + " is in range and its key and configuration are right, then try again",
                    options.ssid(), timeout.toSeconds(),
                    last.nameWhileConnectingTo(options.ssid()));
    }

    void end(ChosenNetwork network) throws Stop {
        SupplicantState last = Progress.during(out, "Disconnecting from " + options.ssid(),
                show -> {
                    begin(show);
                    network.disconnect();
                    return await(state -> !state.isConnected(), show);
                });
        if (last.isConnected())
            throw new Stop("the supplicant is %s %d s after the command to disconnect; see"
                    + " whether another program connects it", last, timeout.toSeconds());
    }

    private void begin(Consumer<String> show) {
        shown = "";
        next(show);
    }

    /** Waits until the state is as wanted, or the time is over, and returns the last state. */
    private SupplicantState await(Predicate<SupplicantState> isWanted, Consumer<String> show)
            throws Stop {
        long start = System.nanoTime();
        SupplicantState state = next(show);
        while (!isWanted.test(state) && System.nanoTime() - start < timeout.toNanos()) {
            pause();
            state = next(show);
        }
        return state;
    }

    private SupplicantState next(Consumer<String> show) {
        SupplicantState state = SupplicantState.of(options.iface());
        String now = state.nameWhileConnectingTo(options.ssid());
        if (state.isKnown() && !now.equals(shown)) {
            show.accept(now);
            shown = now;
        }
        return state;
    }

    private static void pause() throws Stop {
        try {
            Thread.sleep(PAUSE_MILLISECONDS);
        } catch (InterruptedException e) {
            throw Stop.interrupted();
        }
    }
}
