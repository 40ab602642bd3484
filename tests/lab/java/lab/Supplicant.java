package lab;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.function.Predicate;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The supplicant of the lab, controlled by the client without the library. */
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

    /** Some fields of its status, in this order: {@code KEY=VALUE}, with "-" for a missing value. */
    static String status(String... keys) {
        List<String> lines = ask("status");
        return Stream.of(keys).map(key -> lines.stream().filter(line -> line.startsWith(key + "="))
                .findFirst().orElse(key + "=-")).collect(Collectors.joining(" "));
    }

    /** The SSIDs of its networks, in its order. */
    static List<String> ssids() {
        return ask("list_networks").stream().skip(1).map(line -> line.split("\t")[1])
                .collect(Collectors.toList());
    }

    /** The state and the network in its status, without secrets. */
    static String connection() {
        return ask("status").stream().filter(line -> line.matches("(ssid|id|wpa_state)=.*"))
                .collect(Collectors.joining(" "));
    }

    static void restart() {
        Host.run("bash", "-c", ". \"$SOURCE_DIR/tests/lab/lab.sh\""
                + " && stop_supplicant && start_supplicant");
    }

    /** Stops its execution, so that it does not answer. */
    static void suspend() {
        signal("STOP");
    }

    static void resume() {
        signal("CONT");
    }

    /** After a refusal it would avoid the access point for some time. */
    static void clearRefusals() {
        ask("disconnect");
        ask("bssid_ignore", "clear");
    }

    static int logLines() {
        return log().size();
    }

    /** Whether a line after the first ones of the log matches. */
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
