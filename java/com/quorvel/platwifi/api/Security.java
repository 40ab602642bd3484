package com.quorvel.platwifi.api;

/**
 * The best security that an access point offers. The constants are in order, the best first.
 *
 * <pre>{@code
 * for (AccessPoint ap : wifi.scan()) {
 *     if (ap.security() == Security.OPEN)
 *         System.out.println("everyone can read along at " + ap.ssid());
 * }
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public enum Security {
    /** Enterprise authentication with the algorithms of 192 bits. */
    WPA3_ENTERPRISE_192("WPA3-Enterprise-192"),
    /** A password, by SAE. */
    WPA3_SAE("WPA3-SAE"),
    /** A password, by SAE or as a pre-shared key. */
    WPA2_WPA3("WPA2-PSK/WPA3-SAE"),
    /** A login on a server, by IEEE 802.1X. */
    WPA2_ENTERPRISE("WPA2-Enterprise"),
    /** A pre-shared key. */
    WPA2_PSK("WPA2-PSK"),
    /** A login on a server, with the first version of WPA. */
    WPA_ENTERPRISE("WPA-Enterprise"),
    /** A pre-shared key, with the first version of WPA. */
    WPA_PSK("WPA-PSK"),
    /** Encrypted without a password. */
    OWE("OWE"),
    /** The encryption of the first years, which protects nothing. */
    WEP("WEP"),
    /** None. */
    OPEN("open"),
    /** One that this library cannot use. */
    OTHER("other");

    private final String word;

    Security(String word) {
        this.word = word;
    }

    static Security of(String word) {
        return Words.printedAs(values(), word, OTHER);
    }

    /** The usual words, such as WPA2-PSK. */
    @Override
    public String toString() {
        return word;
    }
}
