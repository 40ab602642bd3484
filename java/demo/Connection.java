package demo;

import java.io.PrintStream;
import java.time.Duration;
import java.util.function.Consumer;
import java.util.function.Predicate;

/** Connects and disconnects, and waits until the supplicant says that it has. */
final class Connection {
    private static final int PAUSE_MILLISECONDS = 50;

    private final Options options;
    private final Duration patience;
    private final PrintStream out;
    private String told;

    /** @param patience  how long it may take until a state is reached */
    Connection(Options options, Duration patience, PrintStream out) {
        this.options = options;
        this.patience = patience;
        this.out = out;
    }

    void make(ChosenNetwork network) throws Stop {
        SupplicantState last = Progress.during(out, "Connecting to " + options.ssid(), tell -> {
            begin(tell);
            network.connect();
            return await(state -> state.isConnectedTo(options.ssid()), tell);
        });
        if (!last.isConnectedTo(options.ssid()))
            throw new Stop("%s is not connected after %d s, the last state was %s; see whether it"
                    + " is in range and its key and configuration are right, then try again",
                    options.ssid(), patience.toSeconds(), last.onTheWayTo(options.ssid()));
    }

    void end(ChosenNetwork network) throws Stop {
        SupplicantState last = Progress.during(out, "Disconnecting from " + options.ssid(),
                tell -> {
                    begin(tell);
                    network.disconnect();
                    return await(state -> !state.isConnected(), tell);
                });
        if (last.isConnected())
            throw new Stop("the supplicant is %s %d s after it was told to disconnect; see"
                    + " whether another program connects it", last, patience.toSeconds());
    }

    private void begin(Consumer<String> tell) {
        told = "";
        next(tell);
    }

    /** The last state: as wanted, or what it was when the patience ended. */
    private SupplicantState await(Predicate<SupplicantState> isWanted, Consumer<String> tell)
            throws Stop {
        long start = System.nanoTime();
        SupplicantState state = next(tell);
        while (!isWanted.test(state) && System.nanoTime() - start < patience.toNanos()) {
            pause();
            state = next(tell);
        }
        return state;
    }

    private SupplicantState next(Consumer<String> tell) {
        SupplicantState state = SupplicantState.of(options.iface());
        String now = state.onTheWayTo(options.ssid());
        if (state.isKnown() && !now.equals(told)) {
            tell.accept(now);
            told = now;
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
