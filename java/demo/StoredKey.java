package demo;

import com.quorvel.platwifi.BWifiPlatformService;
import com.quorvel.platwifi.PlatformCrypt;
import com.quorvel.platwifi.api.Ssid;

import java.io.PrintStream;
import java.nio.charset.StandardCharsets;

/**
 * Shows that a stored key can be read enciphered only. No Network gives a secret: this takes the static natives,
 * which share the networks with the API.
 */
final class StoredKey {
    /** How much of a text is shown: the id of the cipher's key and random bytes, no secret. */
    private static final int SHOWN = "crypt1:".length() + 24;

    private StoredKey() {}

    /** @param key  that was stored */
    static void show(Key key, String adapter, Ssid ssid, PrintStream out) throws Stop {
        try {
            out.println("Key of " + ssid + " enciphered: " + beginning(PlatformCrypt.encrypt(key.plain())));
            String name = new String(ssid.bytes(), StandardCharsets.UTF_8);
            String readBack = BWifiPlatformService.getPreSharedKey0(adapter, name);
            if (readBack == null || !PlatformCrypt.decrypt(readBack).equals(key.plain()))
                throw new Stop("the key does not read back as it was stored; see whether another"
                        + " program changes the network, then try again");
            out.println("Reads back enciphered, the same key: " + beginning(readBack));
        } catch (RuntimeException e) {
            throw new Stop("%s", e.getMessage());
        }
    }

    private static String beginning(String enciphered) {
        return enciphered.substring(0, Math.min(SHOWN, enciphered.length())) + "…";
    }
}
