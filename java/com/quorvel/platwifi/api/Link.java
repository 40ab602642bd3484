package com.quorvel.platwifi.api;

import java.util.Optional;
import java.util.OptionalInt;

/**
 * The connection of an adapter to an access point, as it was when it was asked for. What the supplicant or the driver
 * does not report is empty.
 *
 * <pre>{@code
 * wifi.link().ifPresent(link ->
 *         System.out.println(link.ssid() + ", " + link.signal().orElse(0) + " dBm, "
 *                 + link.address().orElse("no address yet")));
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class Link {
    private final Members members;

    Link(Members members) {
        this.members = members;
    }

    /**
     * The name of the network.
     *
     * @return its bytes and text
     */
    public Ssid ssid() {
        return members.ssid("ssid").orElseGet(() -> Ssid.of(new byte[0]));
    }

    /**
     * The address of the access point.
     *
     * @return such as {@code 02:00:00:00:01:00}
     */
    public String bssid() {
        return members.text("bssid");
    }

    /**
     * The frequency of the channel.
     *
     * @return in MHz
     */
    public OptionalInt frequency() {
        return members.number("frequency");
    }

    /**
     * The channel.
     *
     * @return by the rules of IEEE 802.11
     */
    public OptionalInt channel() {
        return members.number("channel");
    }

    /**
     * How strong the access point is received.
     *
     * @return in dBm
     */
    public OptionalInt signal() {
        return members.number("signal");
    }

    /**
     * The rate of sending.
     *
     * @return in Mbit/s
     */
    public OptionalInt rate() {
        return members.number("speed");
    }

    /**
     * The address of this host on the network.
     *
     * @return that of IPv4; else one of IPv6 that reaches beyond the link
     */
    public Optional<String> address() {
        return members.optional("ipv4").or(() -> members.optional("ipv6"));
    }

    /**
     * How the connection got its keys.
     *
     * @return in the supplicant's words, such as {@code WPA2-PSK}
     */
    public String keyManagement() {
        return members.text("key_mgmt");
    }

    /**
     * Whether management frames are protected.
     *
     * @return false also where that is not reported
     */
    public boolean protectsFrames() {
        String pmf = members.text("pmf");
        return !pmf.isEmpty() && !pmf.equals(FrameProtection.DISABLED.toString());
    }

    /** The network, the access point and the signal. */
    @Override
    public String toString() {
        return ssid() + " " + bssid()
                + (signal().isPresent() ? " " + signal().getAsInt() + " dBm" : "");
    }
}
