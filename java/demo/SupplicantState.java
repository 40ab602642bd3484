package demo;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.util.concurrent.TimeUnit;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * What the supplicant is doing, and for which network.
 *
 * <p>It is asked through its own client, and not by {@code getDaemonStatus0}: that a connection is
 * complete shall be the supplicant's word, not that of the library which the demo shows.
 */
final class SupplicantState {
    private static final String COMPLETED = "COMPLETED";
    private static final int PATIENCE_SECONDS = 5;

    private final String name;
    private final String ssid;

    private SupplicantState(String reply) {
        name = field(reply, "wpa_state", "UNKNOWN");
        ssid = Ssid.fromClient(field(reply, "ssid", "")).toString();
    }

    /** UNKNOWN where the client does not say. */
    static SupplicantState of(String iface) {
        return new SupplicantState(ask(iface));
    }

    boolean isConnectedTo(String network) {
        return name.equals(COMPLETED) && ssid.equals(network);
    }

    /** Its name; a network that is still to be left for another one is named too. */
    String onTheWayTo(String network) {
        return isConnectedTo(network) ? name : toString();
    }

    @Override
    public String toString() {
        return name.equals(COMPLETED) ? name + " on " + ssid : name;
    }

    private static String field(String reply, String key, String missing) {
        Matcher line = Pattern.compile("(?md)^" + key + "=(.*)$").matcher(reply);
        return line.find() ? line.group(1) : missing;
    }

    private static String ask(String iface) {
        try {
            return reply(new ProcessBuilder(client(), "-i" + iface, "status")
                    .redirectError(ProcessBuilder.Redirect.DISCARD).start());
        } catch (IOException e) {
            return "";
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            return "";
        }
    }

    /** The reply is far smaller than what a pipe holds, so the client never waits for a reader. */
    private static String reply(Process client) throws IOException, InterruptedException {
        try {
            client.getOutputStream().close();
            if (!client.waitFor(PATIENCE_SECONDS, TimeUnit.SECONDS))
                return "";
            return new String(client.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
        } finally {
            client.destroyForcibly();
        }
    }

    /** The library's own, where the environment names its directory. */
    private static String client() {
        String directory = System.getenv("PLATFORM_BOOT_DIR");
        return directory == null ? "wpa_cli" : directory + "/wpa_cli";
    }
}
