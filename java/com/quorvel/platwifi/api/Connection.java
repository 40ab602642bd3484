package com.quorvel.platwifi.api;

import java.time.Duration;
import java.util.Optional;

/**
 * The result of {@link Wifi#join} and {@link Wifi#connect}: a connection that stands.
 *
 * <pre>{@code
 * Connection made = wifi.join("home", passphrase).get();
 * System.out.println("connected to " + made.ssid() + " after " + made.time().toMillis() + " ms");
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class Connection {
    private final Ssid ssid;
    private final Link link;
    private final Security security;
    private final Duration time;

    Connection(Members members) {
        ssid = Ssid.ofHex(members.text("target"));
        link = members.is("connected") ? new Link(members) : null;
        security = members.optional("security").map(Security::of).orElse(null);
        time = Duration.ofMillis(members.number("milliseconds").orElse(0));
    }

    /**
     * The network.
     *
     * @return its name
     */
    public Ssid ssid() {
        return ssid;
    }

    /**
     * What was known of the link as soon as the connection stood.
     *
     * @return empty if the connection has ended since
     */
    public Optional<Link> link() {
        return Optional.ofNullable(link);
    }

    /**
     * The security that {@link Wifi#join} has chosen.
     *
     * @return empty for a network that was configured before
     */
    public Optional<Security> security() {
        return Optional.ofNullable(security);
    }

    /**
     * How long it took from the request to the connection.
     *
     * @return without the scans before
     */
    public Duration time() {
        return time;
    }

    /** The network and the link. */
    @Override
    public String toString() {
        return link == null ? ssid.toString() : link.toString();
    }
}
