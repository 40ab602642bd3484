package demo;

import com.quorvel.platwifi.BWifiPlatformService;
import com.quorvel.platwifi.PlatformCrypt;

import java.io.PrintStream;

/** Stores the key of a network in the library, and shows that both directions encipher it. */
final class StoredKey {
    /** How much of a text is shown: the id of the cipher's key and random bytes, no secret. */
    private static final int SHOWN = "crypt1:".length() + 24;

    private StoredKey() {}

    /** @param name  the library's name of the network */
    static void store(Key key, Options options, String name, PrintStream out) throws Stop {
        try {
            String enciphered = PlatformCrypt.encrypt(key.plain());
            out.println("Key of " + options.ssid() + " enciphered: " + beginning(enciphered));
            if (!BWifiPlatformService.setPreSharedKey0(options.iface(), name, enciphered))
                throw new Stop("the library did not take the key of %s; try again", options.ssid());
            show(key, BWifiPlatformService.getPreSharedKey0(options.iface(), name), out);
        } catch (RuntimeException e) {
            throw new Stop("%s", e.getMessage());
        }
    }

    private static void show(Key key, String readBack, PrintStream out) throws Stop {
        if (readBack == null || !PlatformCrypt.decrypt(readBack).equals(key.plain()))
            throw new Stop("the key does not read back as it was stored; see whether another"
                    + " program changes the network, then try again");
        out.println("Reads back enciphered, the same key: " + beginning(readBack));
    }

    private static String beginning(String enciphered) {
        return enciphered.substring(0, Math.min(SHOWN, enciphered.length())) + "…";
    }
}
