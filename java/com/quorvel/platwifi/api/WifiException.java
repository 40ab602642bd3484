package com.quorvel.platwifi.api;

/**
 * Something did not succeed. It has a {@link Reason}, and one line that names the cause and the next step; never a
 * secret.
 *
 * <pre>{@code
 * try (Wifi wifi = Wifi.open()) {
 *     wifi.connect("home").get();
 * } catch (WifiException e) {
 *     System.err.println(e.reason() + ": " + e.getMessage());
 * }
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class WifiException extends RuntimeException {
    private static final long serialVersionUID = 1;

    /** Why it failed. */
    private final Reason reason;

    WifiException(Reason reason, String message) {
        this(reason, message, null);
    }

    WifiException(Reason reason, String message, Throwable cause) {
        super(message, cause);
        this.reason = reason;
    }

    /** The same failure, thrown by the calling thread. */
    WifiException here() {
        return new WifiException(reason, getMessage(), this);
    }

    /**
     * Called by the native half.
     *
     * @param word  of the reason
     * @param ssid  the network, for the message; may be empty
     * @param text  what is wrong; with the next step unless the reason is one of a connection
     */
    static WifiException ofNative(String word, String ssid, String text) {
        Reason reason = Words.constantOf(Reason.values(), word, Reason.FAILED);
        if (!reason.isOfConnection())
            return new WifiException(reason, text);
        String subject = ssid.isEmpty() ? "" : ssid + " is not connected: ";
        return new WifiException(reason, subject + text + "; " + reason.nextStep());
    }

    static WifiException wrongUse(String message) {
        return new WifiException(Reason.WRONG_USE, message);
    }

    /**
     * Why it failed.
     *
     * @return never null
     */
    public Reason reason() {
        return reason;
    }
}
