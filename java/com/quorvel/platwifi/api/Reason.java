package com.quorvel.platwifi.api;

/**
 * Why something failed. The first eleven are the causes of a connection that fails, the same as those of the command
 * {@code platwifi connect}.
 *
 * <pre>{@code
 * try {
 *     wifi.connect("home").get();
 * } catch (WifiException e) {
 *     if (e.reason() == Reason.WRONG_KEY)
 *         askForTheKeyAgain();
 * }
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public enum Reason {
    /** The access point refuses the key. */
    WRONG_KEY("give the right key: join the network with another Passphrase"),
    /** The access point refuses this device, for another reason than the key. */
    REFUSED("try again later, or see the settings of the access point"),
    /** The server refuses the identity, the password or the certificate. */
    LOGIN_REFUSED("correct the identity and the password, or the certificate, by Network.edit()"),
    /** The certificate of the server is not trusted. */
    SERVER_NOT_TRUSTED("set the certificate of its authority by caCertificate() of the builder"),
    /** A certificate or the private key cannot be loaded. */
    CERTIFICATE_FILE("correct the path by Network.edit()"),
    /** No access point of this name is in range. */
    NOT_IN_RANGE("see Wifi.scan(); a hidden network needs hidden(true) of the builder"),
    /** The access point has another security than the network. */
    OTHER_SECURITY("compare Wifi.scan() and Wifi.network(), then set keyManagement() by Network.edit()"),
    /** The access point requires WPA3, or the protection of management frames. */
    NEEDS_PMF_OR_WPA3("set keyManagement(SAE) and frameProtection(REQUIRED) by Network.edit()"),
    /** The operation takes longer than its time-out. */
    TIMED_OUT("try again nearer to the access point, or with a longer time-out"),
    /** The adapter is blocked or switched off. */
    ADAPTER_BLOCKED("switch it on: rfkill unblock wifi, as root"),
    /** The supplicant no longer serves the adapter. */
    SUPPLICANT_GONE("start it again; platwifi doctor tells more"),
    /** Something other than a connection failed; the message says what. */
    FAILED("platwifi doctor tells more"),
    /** A value is wrong on every host; the message says what is allowed. */
    WRONG_USE("correct the value"),
    /** The {@link Wifi} was closed, before or meanwhile. */
    CLOSED("open another Wifi"),
    /** The thread that waited was interrupted. */
    INTERRUPTED("the operation goes on; end it with cancel()");

    private final String nextStep;

    Reason(String nextStep) {
        this.nextStep = nextStep;
    }

    /**
     * The word for it in the JSON output of the command line, such as {@code wrongKey}.
     *
     * @return letters and digits only
     */
    public String word() {
        return Words.wordOf(this);
    }

    /**
     * What to do next. The message of a {@link WifiException} has it, too.
     *
     * @return a part of a sentence
     */
    public String nextStep() {
        return nextStep;
    }

    /**
     * Whether it is a cause of a connection that fails.
     *
     * @return false for the reasons of other failures
     */
    public boolean isOfConnection() {
        return compareTo(FAILED) < 0;
    }
}
