package demo;

import com.quorvel.platwifi.api.Network;
import com.quorvel.platwifi.api.Wifi;
import com.quorvel.platwifi.api.WifiException;

import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.time.Duration;
import java.util.List;

/** Shows on a terminal what the library can do with one adapter, step by step. */
public final class WifiDemo {
    /** The longest wait for a state: 30 s, or another time by -Ddemo.timeout=SECONDS. */
    private static final Duration TIMEOUT =
            Duration.ofSeconds(Long.getLong("demo.timeout", 30));
    private static final int SHOWN = 0;
    private static final int FAILED = 1;

    private final Options options;
    private final Key key; // null if the user gave none
    private final ShutdownGuard guard;
    private final Duration timeout;
    private final PrintStream out;

    private WifiDemo(Options options, ShutdownGuard guard, Duration timeout, PrintStream out)
            throws Stop {
        this.options = options;
        this.guard = guard;
        key = options.keyFile() == null ? null : Key.read(options.keyFile(), System.in);
        this.timeout = timeout;
        this.out = out;
    }

    /** @param arguments  see {@link Options#USAGE} */
    public static void main(String[] arguments) {
        int status = run(TIMEOUT, utf8(FileDescriptor.out), utf8(FileDescriptor.err), arguments);
        if (status != Stop.INTERRUPTED) // else an exit could come before that of the virtual machine
            System.exit(status);
    }

    /**
     * The program without its exit.
     *
     * @param timeout  the longest wait for a state
     * @return 0 if everything was shown, 1 after a failure, 2 after wrong use, {@link Stop#INTERRUPTED} after a signal
     */
    static int run(Duration timeout, PrintStream out, PrintStream err, String... arguments) {
        try (ShutdownGuard guard = new ShutdownGuard()) {
            return run(guard, timeout, out, err, arguments);
        }
    }

    private static int run(ShutdownGuard guard, Duration timeout, PrintStream out, PrintStream err,
            String... arguments) {
        try {
            new WifiDemo(Options.parse(arguments), guard, timeout, out).show();
            return SHOWN;
        } catch (Stop reason) {
            return report(err, reason);
        } catch (WifiException reason) {
            return report(err, Stop.of(reason));
        } catch (UnsatisfiedLinkError reason) { // of the cipher
            print(err, reason);
            return FAILED;
        }
    }

    private static int report(PrintStream err, Stop reason) {
        print(err, reason);
        for (Throwable further : reason.getSuppressed())
            print(err, further);
        return reason.status;
    }

    private static void print(PrintStream err, Throwable reason) {
        err.println("wifi-demo: " + reason.getMessage());
    }

    private void show() throws Stop {
        try (Wifi wifi = Wifi.open(options.iface())) {
            out.println("wpa_supplicant is running.");
            out.println("Adapters: " + String.join(", ", wifi.adapters()));
            out.println("State: " + Connecting.state(wifi, null));
            show(wifi.networks());
            AccessPoints inRange = AccessPoints.scan(wifi, out);
            inRange.print(out);
            if (options.ssid() == null) {
                showDocument();
            } else {
                guard.activate();
                connect(wifi, inRange);
            }
        }
    }

    private void show(List<Network> configured) {
        out.println("Configured networks:" + (configured.isEmpty() ? " none" : ""));
        for (Network network : configured)
            out.println("  " + network.ssid());
    }

    private void connect(Wifi wifi, AccessPoints inRange) throws Stop {
        try (ChosenNetwork network = ChosenNetwork.open(wifi, options, key, inRange, out)) {
            try {
                network.makeReady(key);
                Connecting connecting = new Connecting(wifi, network.ssid(), timeout, out);
                connecting.connect();
                showDocument();
                if (!options.keep())
                    connecting.disconnect();
            } finally {
                guard.endInterruptions();
            }
        }
    }

    private void showDocument() throws Stop {
        if (options.xmlProgram() != null)
            XmlDocument.print(options.xmlProgram(), out);
    }

    /** SSIDs are printed in UTF-8, also if no locale is set, as in a container. */
    private static PrintStream utf8(FileDescriptor descriptor) {
        return new PrintStream(new FileOutputStream(descriptor), true, StandardCharsets.UTF_8);
    }
}
