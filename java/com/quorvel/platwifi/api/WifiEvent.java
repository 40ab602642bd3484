package com.quorvel.platwifi.api;

import java.time.Instant;
import java.util.Optional;
import java.util.OptionalInt;

/**
 * Something that the supplicant has reported of an adapter. What an event has no value for is empty.
 *
 * <pre>{@code
 * wifi.addListener(event -> System.out.println(event.time() + " " + event));
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class WifiEvent {
    /**
     * The kind of an event. A later version may have more.
     *
     * <pre>{@code
     * if (event.kind() == WifiEvent.Kind.WRONG_KEY)
     *     askForTheKeyAgain();
     * }</pre>
     */
    public enum Kind {
        /** Begins to authenticate with an access point. */
        AUTHENTICATING,
        /** Begins to associate with an access point. */
        ASSOCIATING,
        /** The connection stands. */
        CONNECTED,
        /** Is about to change to another access point of the same network. */
        ROAMING,
        /** Is connected to another access point of the same network. */
        ROAMED,
        /** The connection has ended; {@link WifiEvent#code} is the reason code. */
        DISCONNECTED,
        /** The key seems to be wrong. */
        WRONG_KEY,
        /** The access point refuses the authentication; {@link WifiEvent#code} is the status code. */
        AUTHENTICATION_REFUSED,
        /** The access point refuses the association; {@link WifiEvent#code} is the status code. */
        ASSOCIATION_REFUSED,
        /** The access point, or its server, did not answer in time. */
        TIMED_OUT,
        /** A network is not tried for some time, because it failed. */
        SUSPENDED,
        /** That time is over. */
        RESUMED,
        /** The login begins. */
        EAP_STARTED,
        /** The server proposes an EAP method. */
        EAP_METHOD_PROPOSED,
        /** This host refuses it: the network is not configured for it. */
        EAP_METHOD_REFUSED,
        /** Both sides have chosen an EAP method. */
        EAP_METHOD_CHOSEN,
        /** The certificates or the private key of the method cannot be loaded. */
        EAP_METHOD_UNUSABLE,
        /** The server shows a certificate of its chain. */
        CERTIFICATE_SHOWN,
        /** The certificate of the server is not trusted. */
        CERTIFICATE_REJECTED,
        /** The server refuses the identity or the password. */
        LOGIN_REFUSED,
        /** A credential is not configured. */
        CREDENTIAL_NEEDED,
        /** Any other step of the login. */
        EAP_STATUS,
        /** The login has succeeded. */
        EAP_SUCCEEDED,
        /** The login has failed. */
        EAP_FAILED,
        /** No access point in range belongs to an enabled network. */
        NETWORK_NOT_FOUND,
        /** The access point of the connection is no longer received. */
        ACCESS_POINT_LOST,
        /** A scan has found an access point that was not known. */
        ACCESS_POINT_FOUND,
        /** Scans have not found an access point for some time. */
        ACCESS_POINT_GONE,
        /** A scan has begun. */
        SCAN_STARTED,
        /** A scan has ended. */
        SCAN_FINISHED,
        /** The driver has refused a scan, or broken it off. */
        SCAN_FAILED,
        /** The signal has changed. */
        SIGNAL_CHANGED,
        /** The access point changes its channel. */
        CHANNEL_CHANGED,
        /** The rules for the use of the radio have changed. */
        REGULATORY_CHANGED,
        /** The supplicant ends, or stops serving the adapter. */
        SUPPLICANT_ENDS,
        /** The supplicant has ended without a message. */
        SUPPLICANT_LOST,
        /** Any other message; {@link WifiEvent#text} has it. */
        OTHER
    }

    private final Members members;
    private final Kind kind;
    private final Instant time = Instant.now();

    WifiEvent(Members members) {
        this.members = members;
        this.kind = Words.constantOf(Kind.values(), members.text("event"), Kind.OTHER);
    }

    boolean isLast() {
        return kind == Kind.SUPPLICANT_ENDS || kind == Kind.SUPPLICANT_LOST;
    }

    /**
     * What has happened.
     *
     * @return {@link Kind#OTHER} for a message without a kind of its own
     */
    public Kind kind() {
        return kind;
    }

    /**
     * When the event was received.
     *
     * @return by the clock of this host
     */
    public Instant time() {
        return time;
    }

    /**
     * The network.
     *
     * @return empty if it is not known
     */
    public Optional<Ssid> ssid() {
        return members.ssid("ssid");
    }

    /**
     * The access point.
     *
     * @return its address
     */
    public Optional<String> bssid() {
        return members.optional("bssid");
    }

    /**
     * The access point before, of {@link Kind#ROAMING} and {@link Kind#ROAMED}.
     *
     * @return its address
     */
    public Optional<String> previousBssid() {
        return members.optional("previousBssid");
    }

    /**
     * The frequency.
     *
     * @return in MHz
     */
    public OptionalInt frequency() {
        return members.number("frequency");
    }

    /**
     * The signal.
     *
     * @return in dBm
     */
    public OptionalInt signal() {
        return members.number("signal");
    }

    /**
     * The number that the event is reported with: a reason or status code of IEEE 802.11, the number of an EAP method, or an
     * error number.
     *
     * @return the number
     */
    public OptionalInt code() {
        return members.number("code");
    }

    /**
     * What the code means, or the event without one.
     *
     * @return plain words; "" for none
     */
    public String meaning() {
        return members.text("meaning");
    }

    /**
     * Whether this host has ended the connection, and not the access point.
     *
     * @return false for other events
     */
    public boolean isLocal() {
        return members.is("local");
    }

    /**
     * How long the network is not tried, of {@link Kind#WRONG_KEY} and {@link Kind#SUSPENDED}.
     *
     * @return in seconds
     */
    public OptionalInt suspension() {
        return members.number("seconds");
    }

    /**
     * The subject of a certificate.
     *
     * @return as the server has it
     */
    public Optional<String> certificate() {
        return members.optional("certificate");
    }

    /**
     * The message of an event of the kind {@link Kind#OTHER}.
     *
     * @return without secrets; "" for other events
     */
    public String text() {
        return members.text("text");
    }

    /** The kind, the network, the access point and the meaning. */
    @Override
    public String toString() {
        return kind + ssid().map(name -> " " + name).orElse("")
                + bssid().map(address -> " " + address).orElse("")
                + (meaning().isEmpty() ? "" : ": " + meaning());
    }
}
