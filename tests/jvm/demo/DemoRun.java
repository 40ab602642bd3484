package demo;

import static org.junit.jupiter.api.Assertions.assertLinesMatch;

import com.quorvel.platwifi.StandIn;
import com.quorvel.platwifi.api.Host;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.time.Duration;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** Runs the whole program with the stand-in in place of the client. */
final class DemoRun implements AutoCloseable {
    static final String HOME = "0\thome\tany\t[CURRENT]\n";
    static final String CAFE = "02:00:00:00:02:00\t5180\t-71\t[ESS]\tcafe\n";
    /** The longest wait of a run that does not connect. */
    static final Duration SHORT = Duration.ofSeconds(1);

    private static final Duration TIMEOUT = Duration.ofMinutes(5);
    private static final String LIST = "network id / ssid / bssid / flags\n";

    final Host host = new Host();
    private final ByteArrayOutputStream out = new ByteArrayOutputStream();
    private final ByteArrayOutputStream err = new ByteArrayOutputStream();

    @Override
    public void close() {
        host.close();
    }

    /** Activates a supplicant with these networks and access points; rules of a test come before its own. */
    static void play(StandIn rules, String networks, String... accessPoints) {
        rules.processes("4711 /sbin/wpa_supplicant -iwlan0\n")
                .when("-iwlan0", "list_networks").print(LIST + networks);
        Host.supplicant(rules, String.join("", accessPoints)).play();
    }

    /** Rules for a network that is added as the first one, and listed until it is removed. */
    static StandIn adding(String printed) {
        return new StandIn().when("-iwlan0", "add_network").print("0\n")
                .when("-iwlan0", "list_networks").after("-iwlan0", "remove_network", "*").print(LIST)
                .when("-iwlan0", "list_networks").after("-iwlan0", "add_network")
                .print(LIST + "0\t" + printed + "\tany\t\n");
    }

    /** Rules for a connection from its selection on, until the command to disconnect. */
    static StandIn connecting(StandIn rules, String printed) {
        return rules.when("-iwlan0", "status").after("-iwlan0", "disconnect")
                .print("wpa_state=DISCONNECTED\n")
                .when("-iwlan0", "status").after("-iwlan0", "select", "*")
                .print(Host.statusOn(printed, 0));
    }

    /** The commands that change something, without the queries. */
    static List<String> changes() {
        return StandIn.calls().stream().map(call -> call.replaceFirst("^-iwlan0 ", ""))
                .filter(call -> !call.matches("(arg|interface|status|list_networks|get_network.*"
                        + "|scan|scan_results|get_capability.*|signal_poll)"))
                .collect(Collectors.toList());
    }

    /** Runs this beside the program. */
    static void beside(Runnable work) {
        Thread thread = new Thread(work);
        thread.setDaemon(true);
        thread.start();
    }

    int run(String... arguments) {
        return run(TIMEOUT, arguments);
    }

    int run(Duration timeout, String... arguments) {
        beside(this::finishScan);
        return WifiDemo.run(timeout, new PrintStream(out, true, StandardCharsets.UTF_8),
                new PrintStream(err, true, StandardCharsets.UTF_8), arguments);
    }

    List<String> out() {
        return lines(out);
    }

    List<String> err() {
        return lines(err);
    }

    String errors() {
        return err.toString(StandardCharsets.UTF_8);
    }

    /** Compares the last lines of the output. */
    void assertLast(String... expected) {
        List<String> all = out();
        assertLinesMatch(List.of(expected),
                all.subList(Math.max(0, all.size() - expected.length), all.size()));
    }

    void assertErrors(String... expected) {
        assertLinesMatch(List.of(expected), err());
    }

    private void finishScan() {
        try {
            host.socket.finishScan();
        } catch (IllegalStateException e) { // the program has ended without a scan
        }
    }

    private static List<String> lines(ByteArrayOutputStream stream) {
        return stream.toString(StandardCharsets.UTF_8).lines().collect(Collectors.toList());
    }
}
