package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.time.Duration;

/** Shows on a terminal what the library can do with one adapter, step by step. */
public final class WifiDemo {
    /** Half a minute, unless a slow machine's owner says otherwise: -Ddemo.patience=SECONDS. */
    private static final Duration PATIENCE =
            Duration.ofSeconds(Long.getLong("demo.patience", 30));
    private static final int SHOWN = 0;
    private static final int NOTHING_TO_SHOW = 1;

    private final Options options;
    private final Key key; // null when the user has given none
    private final OrderlyEnd end;
    private final Duration patience;
    private final PrintStream out;

    private WifiDemo(Options options, OrderlyEnd end, Duration patience, PrintStream out)
            throws Stop {
        this.options = options;
        this.end = end;
        key = options.keyFile() == null ? null : Key.read(options.keyFile(), System.in);
        this.patience = patience;
        this.out = out;
    }

    /** @param arguments  as {@link Options#USAGE} says */
    public static void main(String[] arguments) {
        System.exit(run(PATIENCE, utf8(FileDescriptor.out), utf8(FileDescriptor.err), arguments));
    }

    /**
     * The program without its exit.
     *
     * @param patience  how long a connection may take
     * @return 0 everything was shown, 1 there was nothing to show or something failed, 2 wrong use
     */
    static int run(Duration patience, PrintStream out, PrintStream err, String... arguments) {
        try (OrderlyEnd end = new OrderlyEnd()) {
            return run(end, patience, out, err, arguments);
        }
    }

    private static int run(OrderlyEnd end, Duration patience, PrintStream out, PrintStream err,
            String... arguments) {
        try {
            new WifiDemo(Options.parse(arguments), end, patience, out).show();
            return SHOWN;
        } catch (Stop reason) {
            tell(err, reason);
            for (Throwable further : reason.getSuppressed())
                tell(err, further);
            return reason.status;
        } catch (UnsatisfiedLinkError reason) {
            tell(err, reason);
            return NOTHING_TO_SHOW;
        }
    }

    private static void tell(PrintStream err, Throwable reason) {
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
                end.require();
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
            Connection connection = new Connection(options, patience, out);
            connection.make(network);
            showDocument();
            if (!options.keep())
                connection.end(network);
        }
    }

    /** Network names are UTF-8, also where no locale is set, as in a container. */
    private static PrintStream utf8(FileDescriptor descriptor) {
        return new PrintStream(new FileOutputStream(descriptor), true, StandardCharsets.UTF_8);
    }
}
