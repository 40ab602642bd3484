package demo;

import com.quorvel.platwifi.api.Ssid;
import com.quorvel.platwifi.api.WifiException;

import java.util.ArrayDeque;
import java.util.Deque;
import java.util.List;

/** The arguments of the program. */
final class Options {
    static final String USAGE =
            "[INTERFACE] [--connect SSID [--key-file FILE] [--keep]] [--xml PROGRAM]";

    private final String iface;
    private Ssid ssid;
    private String keyFile;
    private String xmlProgram;
    private boolean keep;

    private Options(String iface) {
        this.iface = iface;
    }

    static Options parse(String... arguments) throws Stop {
        Deque<String> rest = new ArrayDeque<>(List.of(arguments));
        Options options = new Options(isInterface(rest.peek()) ? rest.remove() : "wlan0");
        while (!rest.isEmpty())
            options.take(rest.remove(), rest);
        if (options.ssid == null && (options.keyFile != null || options.keep))
            throw Stop.wrongUse("--key-file and --keep go with --connect");
        return options;
    }

    String iface() {
        return iface;
    }

    /** The network to connect to; null if the user names none. */
    Ssid ssid() {
        return ssid;
    }

    /** The file with the key of the network, "-" for standard input; null if there is none. */
    String keyFile() {
        return keyFile;
    }

    /** The program that prints the state as an XML document; null if there is none. */
    String xmlProgram() {
        return xmlProgram;
    }

    /** Whether the network stays configured and connected. */
    boolean keep() {
        return keep;
    }

    private void take(String option, Deque<String> rest) throws Stop {
        switch (option) {
        case "--connect":
            ssid = ssid(rest.poll());
            break;
        case "--key-file":
            keyFile = value("--key-file needs a file, or - for standard input", rest.poll());
            break;
        case "--xml":
            xmlProgram = value("--xml needs the path of platwifi", rest.poll());
            break;
        case "--keep":
            keep = true;
            break;
        default:
            throw Stop.wrongUse("'" + option + "' is not understood here");
        }
    }

    private static boolean isInterface(String argument) {
        return argument != null && !argument.isEmpty() && !argument.startsWith("-");
    }

    private static String value(String need, String argument) throws Stop {
        if (argument == null || argument.isEmpty())
            throw Stop.wrongUse(need);
        return argument;
    }

    private static Ssid ssid(String argument) throws Stop {
        String need = "--connect needs an SSID of 1 to 32 bytes";
        try {
            return Ssid.of(value(need, argument));
        } catch (WifiException e) {
            throw Stop.wrongUse(need);
        }
    }
}
