package com.quorvel.platwifi.api;

/**
 * How a configured network gets its keys. A network may allow several.
 *
 * <pre>{@code
 * Network home = Network.builder("home")
 *         .keyManagement(KeyManagement.WPA_PSK, KeyManagement.SAE)
 *         .passphrase(passphrase)
 *         .build();
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public enum KeyManagement {
    /** Open, or WEP. */
    NONE("NONE"),
    /** WPA or WPA2 with a pre-shared key. */
    WPA_PSK("WPA-PSK"),
    /** WPA or WPA2 with a login on a server. */
    WPA_EAP("WPA-EAP"),
    /** IEEE 802.1X with dynamic WEP keys. */
    IEEE8021X("IEEE8021X"),
    /** WPA in a network without access point. */
    WPA_NONE("WPA-NONE"),
    /** WPA3 with a password. */
    SAE("SAE"),
    /** Encryption without a password. */
    OWE("OWE"),
    /** A pre-shared key, with SHA-256. */
    WPA_PSK_SHA256("WPA-PSK-SHA256"),
    /** A login on a server, with SHA-256. */
    WPA_EAP_SHA256("WPA-EAP-SHA256"),
    /** A pre-shared key, with fast transition between access points. */
    FT_PSK("FT-PSK"),
    /** A login on a server, with fast transition between access points. */
    FT_EAP("FT-EAP"),
    /** WPA3 with a password, with fast transition between access points. */
    FT_SAE("FT-SAE"),
    /** WPA3-Enterprise with algorithms of 192 bits. */
    SUITE_B_192("WPA-EAP-SUITE-B-192");

    private final String word;

    KeyManagement(String word) {
        this.word = word;
    }

    /** The word of the supplicant, such as WPA-PSK. */
    @Override
    public String toString() {
        return word;
    }
}
