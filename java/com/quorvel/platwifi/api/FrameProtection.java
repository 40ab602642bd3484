package com.quorvel.platwifi.api;

/**
 * The protection of management frames of a configured network.
 *
 * <pre>{@code
 * Network home = Network.builder("home")
 *         .keyManagement(KeyManagement.SAE)
 *         .frameProtection(FrameProtection.REQUIRED)
 *         .passphrase(passphrase)
 *         .build();
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public enum FrameProtection {
    /** Off. */
    DISABLED("disabled"),
    /** On where the access point has it. */
    OPTIONAL("optional"),
    /** On; an access point without it is not used. WPA3 needs it. */
    REQUIRED("required"),
    /** What the supplicant does without a value. */
    DEFAULT("default");

    private final String word;

    FrameProtection(String word) {
        this.word = word;
    }

    /** The word of the property {@code pmf}. */
    @Override
    public String toString() {
        return word;
    }
}
