package lab;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.function.Predicate;

/** The supplicant of wlan0, asked by a client of one's own: the library has no part in it. */
final class Supplicant {
    private static final Path LOG = Path.of(Host.variable("LAB_SUPPLICANT_LOG"));

    private Supplicant() {}

    static List<String> ask(String... words) {
        String[] command = new String[words.length + 2];
        command[0] = "wpa_cli";
        command[1] = "-iwlan0";
        System.arraycopy(words, 0, command, 2, words.length);
        return Host.run(command);
    }

    static boolean isOn(String ssid) {
        return ask("status").containsAll(List.of("ssid=" + ssid, "wpa_state=COMPLETED"));
    }

    /** What of its status tells where it is; there are no secrets in it. */
    static String place() {
        Predicate<String> tells = line -> line.matches("(ssid|id|wpa_state)=.*");
        return String.join(" ", ask("status").stream().filter(tells).toArray(String[]::new));
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

    static long logLines() {
        return log().size();
    }

    /** Whether a line behind the first ones of the log says so. */
    static boolean hasLogged(long first, Predicate<String> line) {
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
