package demo;

import java.nio.charset.StandardCharsets;
import java.util.ArrayDeque;
import java.util.Deque;
import java.util.List;

/** What the user asks for. */
final class Options {
    static final String USAGE = "[INTERFACE] [--connect SSID [--keep]]";

    private static final int MAX_SSID_BYTES = 32;

    final String iface;

    /** The network to connect to; null when the user names none. */
    final String ssid;

    /** Whether the connection and the network remain. */
    final boolean keep;

    private Options(String iface, String ssid, boolean keep) {
        this.iface = iface;
        this.ssid = ssid;
        this.keep = keep;
    }

    static Options parse(String... arguments) throws Stop {
        Deque<String> rest = new ArrayDeque<>(List.of(arguments));
        String iface = isInterface(rest.peek()) ? rest.remove() : "wlan0";
        String ssid = takes(rest, "--connect") ? ssid(rest.poll()) : null;
        boolean keep = ssid != null && takes(rest, "--keep");
        if (!rest.isEmpty())
            throw Stop.wrongUse("'" + rest.peek() + "' is not understood here");
        return new Options(iface, ssid, keep);
    }

    private static boolean isInterface(String argument) {
        return argument != null && !argument.isEmpty() && !argument.startsWith("-");
    }

    private static boolean takes(Deque<String> rest, String option) {
        return option.equals(rest.peek()) && rest.remove() != null;
    }

    private static String ssid(String argument) throws Stop {
        int length = argument == null ? 0 : argument.getBytes(StandardCharsets.UTF_8).length;
        if (length < 1 || length > MAX_SSID_BYTES)
            throw Stop.wrongUse("--connect needs an SSID of 1 to " + MAX_SSID_BYTES + " bytes");
        return argument;
    }
}
