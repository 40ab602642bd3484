package lab;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.function.Predicate;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The supplicant of wlan0, asked by a client of one's own: the library has no part in it. */
final class Supplicant {
    private static final Path LOG = Path.of(Host.variable("LAB_SUPPLICANT_LOG"));

    private Supplicant() {}

    static List<String> ask(String... words) {
        return Host.run(Stream.concat(Stream.of("wpa_cli", "-i" + Wifi.WLAN), Stream.of(words))
                .toArray(String[]::new));
    }

    static boolean isOn(String ssid) {
        return ask("status").containsAll(List.of("ssid=" + ssid, "wpa_state=COMPLETED"));
    }

    /** Of the networks that it has, in its order. */
    static List<String> ssids() {
        return ask("list_networks").stream().skip(1).map(line -> line.split("\t")[1])
                .collect(Collectors.toList());
    }

    /** What of its status tells where it is; there are no secrets in it. */
    static String place() {
        return ask("status").stream().filter(line -> line.matches("(ssid|id|wpa_state)=.*"))
                .collect(Collectors.joining(" "));
    }

    static void restart() {
        Host.run("bash", "-c", ". \"$SOURCE_DIR/tests/lab/lab.sh\""
                + " && stop_supplicant && start_supplicant");
    }

    /** Suspends it: it is there and does not answer. */
    static void stop() {
        signal("STOP");
    }

    static void goOn() {
        signal("CONT");
    }

    /** Forgets what was refused; else it stays away from the access point for a while. */
    static void forgive() {
        ask("disconnect");
        ask("bssid_ignore", "clear");
    }

    static int logLines() {
        return log().size();
    }

    /** Whether a line behind the first ones of the log says so. */
    static boolean hasLogged(int first, Predicate<String> line) {
        return log().stream().skip(first).anyMatch(line);
    }

    private static void signal(String name) {
        Host.run("bash", "-c", "kill -" + name + " \"$(cat /var/run/wpa_supplicant.pid)\"");
    }

    private static List<String> log() {
        try {
            return Files.readAllLines(LOG, StandardCharsets.ISO_8859_1);
        } catch (IOException cause) {
            throw new IllegalStateException(cause);
        }
    }
}
