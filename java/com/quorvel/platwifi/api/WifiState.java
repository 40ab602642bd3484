package com.quorvel.platwifi.api;

/**
 * What the supplicant does on an adapter.
 *
 * <pre>{@code
 * if (wifi.state() == WifiState.COMPLETED)
 *     System.out.println("connected to " + wifi.link().get().ssid());
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public enum WifiState {
    /** There is no connection, and none is looked for. */
    DISCONNECTED("DISCONNECTED"),
    /** There is no network to connect to. */
    INACTIVE("INACTIVE"),
    /** Looks for access points. */
    SCANNING("SCANNING"),
    /** Begins to associate with an access point. */
    ASSOCIATING("ASSOCIATING"),
    /** Is associated; the authentication follows. */
    ASSOCIATED("ASSOCIATED"),
    /** Proves the key, and gets those of the connection. */
    FOUR_WAY_HANDSHAKE("4WAY_HANDSHAKE"),
    /** Gets the key of the group. */
    GROUP_HANDSHAKE("GROUP_HANDSHAKE"),
    /** The connection stands. */
    COMPLETED("COMPLETED"),
    /** Any other state, such as that of an adapter that is switched off. */
    UNKNOWN("UNKNOWN");

    private final String word;

    WifiState(String word) {
        this.word = word;
    }

    static WifiState of(String word) {
        return Words.constantWith(values(), WifiState::word, word, UNKNOWN);
    }

    /**
     * The word of the supplicant for it, such as {@code 4WAY_HANDSHAKE}.
     *
     * @return {@code UNKNOWN} for {@link #UNKNOWN}, which stands for several of its words
     */
    public String word() {
        return word;
    }
}
