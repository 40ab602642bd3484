package com.quorvel.platwifi.api;

/**
 * An access point in range, as a scan has found it.
 *
 * <pre>{@code
 * for (AccessPoint ap : wifi.scan())
 *     System.out.printf("%-32s %s %3d %d dBm %s%n",
 *             ap.ssid(), ap.bssid(), ap.channel(), ap.signal(), ap.security());
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class AccessPoint {
    private final Ssid ssid;
    private final String bssid;
    private final int frequency;
    private final int channel;
    private final int signal;
    private final int percent;
    private final Security security;
    private final String offered;

    AccessPoint(Members members) {
        ssid = Ssid.ofHex(members.text("ssid"));
        bssid = members.text("bssid");
        frequency = members.number("frequency").orElse(0);
        channel = members.number("channel").orElse(0);
        signal = members.number("signal").orElse(0);
        percent = members.number("percent").orElse(0);
        security = Security.of(members.text("security"));
        offered = members.text("offered");
    }

    /**
     * The name of its network.
     *
     * @return {@link Ssid#isHidden()} if it sends none
     */
    public Ssid ssid() {
        return ssid;
    }

    /**
     * Its address.
     *
     * @return such as {@code 02:00:00:00:01:00}
     */
    public String bssid() {
        return bssid;
    }

    /**
     * The frequency of its channel.
     *
     * @return in MHz
     */
    public int frequency() {
        return frequency;
    }

    /**
     * Its channel.
     *
     * @return by the rules of IEEE 802.11; 0 for a frequency in none of the bands
     */
    public int channel() {
        return channel;
    }

    /**
     * How strong it is received.
     *
     * @return in dBm, such as -40
     */
    public int signal() {
        return signal;
    }

    /**
     * How strong it is received.
     *
     * @return in percent, 0 to 100
     */
    public int percent() {
        return percent;
    }

    /**
     * The best security that it offers.
     *
     * @return {@link Security#OTHER} if it offers only kinds that this library cannot use
     */
    public Security security() {
        return security;
    }

    /**
     * All kinds of security that it offers.
     *
     * @return in words, such as {@code WPA2-PSK/WPA3-SAE}
     */
    public String offered() {
        return offered;
    }

    /** The name, the address, the signal and the security. */
    @Override
    public String toString() {
        return ssid + " " + bssid + " " + signal + " dBm " + security;
    }
}
