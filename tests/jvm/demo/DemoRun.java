package demo;

import static org.junit.jupiter.api.Assertions.assertLinesMatch;

import com.quorvel.platwifi.StandIn;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.time.Duration;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** Runs the whole program with the stand-in in place of the client. */
final class DemoRun {
    static final String HOME = "0\thome\tany\t[CURRENT]\n";
    static final String CAFE = "02:00:00:00:02:00\t5180\t-71\t[ESS]\tcafe";

    private static final Duration TIMEOUT = Duration.ofMinutes(5);
    private static final String INTERFACES =
            "Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n";
    private static final String LIST = "network id / ssid / bssid / flags\n";

    private final ByteArrayOutputStream out = new ByteArrayOutputStream();
    private final ByteArrayOutputStream err = new ByteArrayOutputStream();

    /** @param lists  the output of each call of list_networks; the last one repeats */
    static StandIn supplicant(String... lists) {
        StandIn standIn = new StandIn().processes("4711 /sbin/wpa_supplicant -iwlan0\n")
                .when("interface").print(INTERFACES)
                .when("-iwlan0", "list_networks").print(LIST + lists[0]);
        Stream.of(lists).skip(1).forEach(list -> standIn.then().print(LIST + list));
        return standIn;
    }

    /**
     * A supplicant that connects, and disconnects after the program has seen the connection twice,
     * with three queries each time. How often the library queries the status before the connection
     * is not fixed, so there are more idle answers than it takes.
     */
    static StandIn connecting(String ssid, String... lists) {
        StandIn standIn = supplicant(lists)
                .when("-iwlan0", "add_network").print("0\n").idle();
        repeat(standIn, 6, "wpa_state=INACTIVE\n");
        standIn.then().print("wpa_state=SCANNING\n").then().print("wpa_state=AUTHENTICATING\n")
                .then().print("wpa_state=ASSOCIATING\n");
        repeat(standIn, 6, "bssid=02:00:00:00:02:00\nssid=" + ssid + "\nwpa_state=COMPLETED\n");
        return standIn.then().print("wpa_state=DISCONNECTED\n");
    }

    /** The commands that change something, without the queries. */
    static List<String> changes() {
        return StandIn.calls().stream().map(call -> call.replaceFirst("^-iwlan0 ", ""))
                .filter(call -> !call.matches("(arg|interface|status|list_networks|get_network.*"
                        + "|scan|scan_results)"))
                .collect(Collectors.toList());
    }

    int run(String... arguments) {
        return run(TIMEOUT, arguments);
    }

    int run(Duration timeout, String... arguments) {
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

    private static void repeat(StandIn standIn, int times, String reply) {
        for (int i = 0; i < times; ++i)
            standIn.then().print(reply);
    }

    private static List<String> lines(ByteArrayOutputStream stream) {
        return stream.toString(StandardCharsets.UTF_8).lines().collect(Collectors.toList());
    }
}
