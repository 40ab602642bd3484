package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.Comparator;
import java.util.List;

/** Shows on a terminal what the library can do with one adapter, step by step. */
public final class WifiDemo {
    private static final String NAME = "wifi-demo";
    private static final String DEFAULT_INTERFACE = "wlan0";
    private static final int SHOWN = 0;
    private static final int NOTHING_TO_SHOW = 1;
    private static final int USAGE = 2;

    private interface Step {
        void run() throws Stop;
    }

    /** Ends the program; the message names the cause and the next step. */
    private static final class Stop extends Exception {
        private static final long serialVersionUID = 1L;

        Stop(String format, Object... values) {
            super(String.format(format, values));
        }
    }

    private final String iface;
    private final PrintStream out;

    private WifiDemo(String iface, PrintStream out) {
        this.iface = iface;
        this.out = out;
    }

    /** @param arguments  at most one, the interface */
    public static void main(String[] arguments) {
        System.exit(run(arguments, utf8(FileDescriptor.out), utf8(FileDescriptor.err)));
    }

    /**
     * The program without its exit.
     *
     * @return 0 access points were shown, 1 no supplicant or nothing to show, 2 wrong usage
     */
    static int run(String[] arguments, PrintStream out, PrintStream err) {
        if (arguments.length > 1 || (arguments.length == 1 && !isInterface(arguments[0]))) {
            err.println("usage: " + NAME + " [INTERFACE] (default: " + DEFAULT_INTERFACE + ")");
            return USAGE;
        }
        try {
            new WifiDemo(arguments.length == 1 ? arguments[0] : DEFAULT_INTERFACE, out).show();
            return SHOWN;
        } catch (Stop | UnsatisfiedLinkError reason) {
            err.println(NAME + ": " + reason.getMessage());
            return NOTHING_TO_SHOW;
        }
    }

    private void show() throws Stop {
        for (Step step : List.<Step>of(this::requireSupplicant, this::showAccessPoints))
            step.run();
    }

    private void requireSupplicant() throws Stop {
        if (!BWifiPlatformService.isWifiEnabled0(iface))
            throw new Stop("wpa_supplicant is not running; start it as root:"
                    + " wpa_supplicant -B -i %s -c /etc/wpa_supplicant/wpa_supplicant.conf", iface);
        out.println("wpa_supplicant is running.");
    }

    private void showAccessPoints() throws Stop {
        List<ScanResult> results = scan();
        if (results.isEmpty())
            throw new Stop("%s found no access point; see whether its radio is on (rfkill list) and"
                    + " one is in range, then try again", iface);
        results.sort(Comparator.comparingInt((ScanResult result) -> result.signal).reversed());
        print(results);
    }

    private List<ScanResult> scan() throws Stop {
        String[] lines = Progress.during(
                out, "Scanning on " + iface, () -> BWifiPlatformService.discoverNetworks0(iface));
        if (lines == null)
            throw new Stop("the supplicant does not scan on %s; see which interfaces it serves:"
                    + " wpa_cli interface", iface);
        return ScanResult.parse(lines);
    }

    private void print(List<ScanResult> results) {
        Table table = new Table()
                .column("SSID", Table.Align.LEFT)
                .column("BSSID", Table.Align.LEFT)
                .column("Channel", Table.Align.RIGHT)
                .column("MHz", Table.Align.RIGHT)
                .column("dBm", Table.Align.RIGHT)
                .column("Security", Table.Align.LEFT);
        for (ScanResult result : results)
            table.row(result.ssid, result.bssid, channel(result), result.frequency, result.signal,
                    result.security);
        table.print(out);
    }

    private static String channel(ScanResult result) {
        return result.channel() == 0 ? "?" : Integer.toString(result.channel());
    }

    private static boolean isInterface(String argument) {
        return !argument.isEmpty() && !argument.startsWith("-");
    }

    /** Network names are UTF-8, also where no locale is set, as in a container. */
    private static PrintStream utf8(FileDescriptor descriptor) {
        return new PrintStream(new FileOutputStream(descriptor), true, StandardCharsets.UTF_8);
    }
}
