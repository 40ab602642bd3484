package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.time.Duration;

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
            report(err, reason);
            for (Throwable further : reason.getSuppressed())
                report(err, further);
            return reason.status;
        } catch (UnsatisfiedLinkError reason) {
            report(err, reason);
            return FAILED;
        }
    }

    private static void report(PrintStream err, Throwable reason) {
        err.println("wifi-demo: " + reason.getMessage());
    }

    private void show() throws Stop {
        requireSupplicant();
        try {
            showAdapters();
            showState();
            ConfiguredNetworks.read(options.iface()).print(out);
            AccessPoints inRange = AccessPoints.scan(options.iface(), out);
            inRange.print(out);
            if (options.ssid() == null) {
                showDocument();
            } else {
                guard.activate();
                connect(inRange);
            }
        } finally {
            BWifiPlatformService.unloadWifiSettings0();
        }
    }

    private void requireSupplicant() throws Stop {
        if (!BWifiPlatformService.isWifiEnabled0(options.iface()))
            throw new Stop("wpa_supplicant is not running; start it as root: wpa_supplicant -B -i"
                    + " %s -c /etc/wpa_supplicant/wpa_supplicant.conf", options.iface());
        out.println("wpa_supplicant is running.");
    }

    private void showAdapters() throws Stop {
        String[] adapters = BWifiPlatformService.getWifiAdapters0();
        if (adapters == null || adapters.length == 0)
            throw new Stop("the supplicant names no adapter; see which it serves:"
                    + " wpa_cli interface");
        out.println("Adapters: " + String.join(", ", adapters));
    }

    private void showState() {
        out.println("State: " + SupplicantState.of(options.iface()));
    }

    private void showDocument() throws Stop {
        if (options.xmlProgram() != null)
            XmlDocument.print(options.xmlProgram(), out);
    }

    private void connect(AccessPoints inRange) throws Stop {
        try (ChosenNetwork network = ChosenNetwork.open(options, key, inRange, out)) {
            network.makeReady();
            Connection connection = new Connection(options, timeout, out);
            connection.make(network);
            showDocument();
            if (!options.keep())
                connection.end(network);
        }
    }

    /** SSIDs are printed in UTF-8, also if no locale is set, as in a container. */
    private static PrintStream utf8(FileDescriptor descriptor) {
        return new PrintStream(new FileOutputStream(descriptor), true, StandardCharsets.UTF_8);
    }
}
