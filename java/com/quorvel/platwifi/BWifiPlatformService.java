package com.quorvel.platwifi;

/**
 * The host's Wi-Fi: adapters, networks in range and the networks that are configured.
 *
 * <p><b>A poll of the status followed by a save stores the access point.</b> Under the profile {@code device},
 * {@link #getNetworkStatus0} notes for each network in range the address of its access point, as if
 * {@link #setPreferredBssid0} had been called: {@link #saveHostSettings0} then writes it, and the
 * supplicant uses no other access point of the network from then on. To prevent that, clear it
 * before each save:
 *
 * <pre>{@code
 * BWifiPlatformService.setPreferredBssid0("wlan0", "home", null);
 * BWifiPlatformService.saveHostSettings0();
 * }</pre>
 *
 * <p>The profile {@code modern} (see below) does not do it, and {@link com.quorvel.platwifi.api.Wifi}, which new programs
 * use, does not either. {@link PlatformConstants} has names for the numbers here.
 *
 * <p>All work is done by the wpa_supplicant of the host; this class reaches it through the native
 * library platwifi, which is loaded with the class. The system property {@code platwifi.library}
 * may name its file; otherwise the directories of {@code java.library.path} are searched, then
 * those where it may be installed. A jar with native files is used last: it unpacks them into a
 * private cache folder, which the system property {@code platwifi.cache} may name. Without the
 * library the first use ends in an {@link UnsatisfiedLinkError} that says where it was looked for.
 *
 * <h2>How to call</h2>
 *
 * <p>{@code iface} is the name of an adapter, such as {@code wlan0}, of at most 13 characters.
 * {@code ssid} names one network of the configured ones, exactly as written there. Every method may
 * be called from any thread. Failures are results, never exceptions: {@code false}, 0 or
 * {@code null}, also where there is no such network or nothing is configured. Only methods that
 * handle secrets throw, a {@link RuntimeException} when a text cannot be enciphered or deciphered.
 *
 * <p>The first method that needs the configured networks reads all of them, which may take seconds.
 * Setters change memory only and say whether something changed: setting the same value again gives
 * {@code false}. {@link #saveHostSettings0} writes the changes. A {@code null} text clears a field.
 *
 * <p>Text that is not UTF-8, such as the bytes of an old SSID, stays whole: a byte NN of no valid
 * character is the lone surrogate U+DCNN.
 *
 * <p>Secrets cross this interface enciphered, WEP keys in plain; {@link PlatformCrypt} enciphers
 * and deciphers them.
 *
 * <h2>Codes</h2>
 *
 * <table>
 * <caption>Flag sets: added up</caption>
 * <tr><th>Set</th><th>Flags</th></tr>
 * <tr><td>Protocol</td><td>WPA 0x1, RSN (WPA2) 0x2</td></tr>
 * <tr><td>Key management</td><td>NONE 0x1, WPA_PSK 0x2, WPA_EAP 0x4, IEEE8021X 0x8,
 *     WPA_NONE 0x10</td></tr>
 * <tr><td>Pairwise cipher</td><td>NONE 0x1, TKIP 0x2, CCMP 0x4</td></tr>
 * <tr><td>Group cipher</td><td>TKIP 0x2, CCMP 0x4, WEP104 0x8, WEP40 0x10</td></tr>
 * <tr><td>EAP method</td><td>TLS 0x1, PEAP 0x2, TTLS 0x4, MD5 0x8, LEAP 0x10, MSCHAPV2 0x20,
 *     GTC 0x40, OTP 0x80, PSK 0x100, PAX 0x200, FAST 0x400</td></tr>
 * </table>
 *
 * <table>
 * <caption>Enumerations: one value</caption>
 * <tr><th>Name</th><th>Values</th></tr>
 * <tr><td>Authentication algorithm</td><td>unknown 0, open 1, shared 2, LEAP 3,
 *     automatic 4</td></tr>
 * <tr><td>Network mode</td><td>managed 0, ad hoc 1, unknown 2</td></tr>
 * <tr><td>Network status</td><td>unknown 0, enabled 1, connected 3, connecting 4,
 *     disabled 5</td></tr>
 * <tr><td>Supplicant state</td><td>unknown 0, disconnected 1, idle 2, scanning 3, associating 4,
 *     associated 5, 4-way handshake 6, group handshake 7, completed (connected) 8</td></tr>
 * </table>
 *
 * <h2>Profiles</h2>
 *
 * <p>All of this is the profile {@code device}. {@code PLATWIFI_PROFILE=modern} in the environment
 * of the virtual machine chooses the rules for the networks of today: an interface has at most 15
 * characters, an SSID is its bytes, up to 255 networks and lines of a scan are there, and
 * {@link #saveHostSettings0} throws a {@link RuntimeException} that names the field if the
 * supplicant refuses one. Further flags: key management SAE 0x20, OWE 0x40, WPA_PSK_SHA256 0x80,
 * WPA_EAP_SHA256 0x100, FT_PSK 0x200, FT_EAP 0x400, FT_SAE 0x800, SUITE_B_192 0x1000; ciphers of both
 * kinds GCMP 0x20, GCMP_256 0x40, CCMP_256 0x80. Several flags of a set are read and written
 * together.
 *
 * <h2>setSsid0</h2>
 *
 * <p>The library exports {@code setSsid0} under a C++ name that the virtual machine does not look
 * for. Unless native code registers it, a call throws {@link UnsatisfiedLinkError}.
 */
public final class BWifiPlatformService {
    static {
        NativeLibrary.WIFI.load();
    }

    private BWifiPlatformService() {}

    // The host and its adapters.

    /**
     * Whether the supplicant runs: for {@code iface}, whether the process list shows it; for
     * {@code null}, whether its pid file /var/run/wpa_supplicant.pid exists.
     *
     * @param iface  name of the adapter, or null
     * @return whether it runs
     */
    public static native boolean isWifiEnabled0(String iface);

    /**
     * Names of the adapters that the supplicant serves, two at most; null on failure.
     *
     * @return null on failure
     */
    public static native String[] getWifiAdapters0();

    /**
     * Supplicant state, one of the codes above.
     *
     * @param iface  name of the adapter
     * @return 0 without a reply
     */
    public static native int getDaemonStatus0(String iface);

    /**
     * Scans and lists the access points in range, 32 lines at most, as the supplicant's client
     * prints them: {@code bssid \t frequency \t signal \t flags \t ssid}, frequency in MHz. Blocks
     * for one to sixteen seconds.
     *
     * @param iface  name of the adapter
     * @return a line an access point (of more than 127 bytes: continued in the next element), none
     *     when nothing is in range; null when the supplicant does not answer or there is no iface
     */
    public static native String[] discoverNetworks0(String iface);

    /**
     * Does nothing; always true.
     *
     * @return true
     */
    public static native boolean hashCACertificates0();

    // The configured networks as a whole.

    /**
     * SSIDs of the configured networks, 32 at most; null on failure.
     *
     * @param iface  name of the adapter
     * @return null on failure
     */
    public static native String[] getNetworkDatabaseSsids0(String iface);

    /**
     * SSID of the network that the supplicant uses or tries to use; null when there is none.
     *
     * @param iface  name of the adapter
     * @return null without one
     */
    public static native String getCurrentNetwork0(String iface);

    /**
     * Adds a network to the supplicant and to the list; false when the SSID is there already.
     *
     * @param iface  name of the adapter
     * @param ssid  of the new network
     * @return whether it succeeded
     */
    public static native boolean addNetwork0(String iface, String ssid);

    /**
     * Removes a network from the supplicant and the list; true also when there was none.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return whether it succeeded
     */
    public static native boolean removeNetwork0(String iface, String ssid);

    /**
     * Starts to connect. {@link #getNetworkStatus0} shows whether it succeeds.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return whether it succeeded
     */
    public static native boolean connectToNetwork0(String iface, String ssid);

    /**
     * Disconnects; true also when there is no such network.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return whether it succeeded
     */
    public static native boolean disconnectFromNetwork0(String iface, String ssid);

    /**
     * Enables every configured network again and lets the supplicant choose among them.
     *
     * @param iface  name of the adapter
     * @return whether it succeeded
     */
    public static native boolean roamNetworks0(String iface);

    /**
     * Writes all changes to the supplicant's configuration and has other processes reload it.
     *
     * @return whether it succeeded
     */
    public static native boolean saveHostSettings0();

    /**
     * Forgets everything read and not saved; the next call reads anew. Always true.
     *
     * @return true
     */
    public static native boolean unloadWifiSettings0();

    // What is known of one network.

    /**
     * Authentication algorithm, one of the codes above.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getAuthentication0(String iface, String ssid);

    /**
     * Whether the access point announces the SSID; false for a hidden network.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return whether it does
     */
    public static native boolean getSsidBroadcasted0(String iface, String ssid);

    /**
     * EAP methods, a flag set.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getEAPMethod0(String iface, String ssid);

    /**
     * Security protocols, a flag set.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getProtocol0(String iface, String ssid);

    /**
     * Key management, a flag set.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getKeyManagement0(String iface, String ssid);

    /**
     * Priority; the supplicant prefers the network with the highest.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getPriority0(String iface, String ssid);

    /**
     * Network mode, one of the codes above; 0 (managed) also without the network.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getNetworkMode0(String iface, String ssid);

    /**
     * Channel of the 2.4 GHz band, 1 to 11; 6 where the access point uses any other.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getChannel0(String iface, String ssid);

    /**
     * Signal strength in percent, 0 to 100, as of the last scan or refresh.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getStrength0(String iface, String ssid);

    /**
     * Index of the WEP key that is used to send, 0 to 3.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getWepIndex0(String iface, String ssid);

    /**
     * Pairwise and group ciphers, one flag set of both. The name is spelled so.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getSupportedEncrytptionMethods0(String iface, String ssid);

    /**
     * Network status, one of the codes above, asked of the supplicant at most every 5 s.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return 0 without the network
     */
    public static native int getNetworkStatus0(String iface, String ssid);

    /**
     * BSSID: MAC address of the access point.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getBssid0(String iface, String ssid);

    /**
     * EAP identity.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getEAPIdentity0(String iface, String ssid);

    /**
     * The EAP identity, as {@link #getEAPIdentity0} gives it, not the anonymous one.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getEAPAnonymousIdentity0(String iface, String ssid);

    /**
     * EAP phase 1 parameters.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getTunnelPhase10(String iface, String ssid);

    /**
     * EAP phase 2 parameters.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getTunnelPhase20(String iface, String ssid);

    /**
     * CA certificate file, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getCACertificate0(String iface, String ssid);

    /**
     * Directory of CA certificates, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getCACertificateDir0(String iface, String ssid);

    /**
     * Client certificate file, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getClientCertificate0(String iface, String ssid);

    /**
     * Private key file, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getPrivateKeyFile0(String iface, String ssid);

    /**
     * CA certificate file, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getCACertificate20(String iface, String ssid);

    /**
     * Directory of CA certificates, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getCACertificateDir20(String iface, String ssid);

    /**
     * Client certificate file, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getClientCertificate20(String iface, String ssid);

    /**
     * Private key file, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getPrivateKeyFile20(String iface, String ssid);

    /**
     * The four WEP keys in plain; "" where one is not set, four times "" without the network.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return four texts
     */
    public static native String[] getWepKeys0(String iface, String ssid);

    // Secrets of one network, enciphered; null also where the key could not be enciphered.

    /**
     * WPA pre-shared key, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getPreSharedKey0(String iface, String ssid);

    /**
     * EAP password, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getEAPPassword0(String iface, String ssid);

    /**
     * Password of the private key file, phase 1, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getPrivateKeyPassword0(String iface, String ssid);

    /**
     * Password of the private key file, phase 2, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @return null if it is not set, or without the network
     */
    public static native String getPrivateKeyPassword20(String iface, String ssid);

    // Changes to one network, in memory until saveHostSettings0.

    /**
     * New SSID. Not bound by name: see the note on {@code setSsid0} above.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setSsid0(String iface, String ssid, String value);

    /**
     * MAC address of the only access point to use.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPreferredBssid0(String iface, String ssid, String value);

    /**
     * EAP identity.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setEAPIdentity0(String iface, String ssid, String value);

    /**
     * EAP identity that is sent outside the tunnel.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setEAPAnonymousIdentity0(String iface, String ssid, String value);

    /**
     * EAP phase 1 parameters.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setTunnelPhase10(String iface, String ssid, String value);

    /**
     * EAP phase 2 parameters.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setTunnelPhase20(String iface, String ssid, String value);

    /**
     * CA certificate file, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setCACertificate0(String iface, String ssid, String value);

    /**
     * Directory of CA certificates, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setCACertificateDir0(String iface, String ssid, String value);

    /**
     * Client certificate file, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setClientCertificate0(String iface, String ssid, String value);

    /**
     * Private key file, phase 1.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPrivateKeyFile0(String iface, String ssid, String value);

    /**
     * CA certificate file, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setCACertificate20(String iface, String ssid, String value);

    /**
     * Directory of CA certificates, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setCACertificateDir20(String iface, String ssid, String value);

    /**
     * Client certificate file, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setClientCertificate20(String iface, String ssid, String value);

    /**
     * Private key file, phase 2.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPrivateKeyFile20(String iface, String ssid, String value);

    /**
     * Authentication algorithm, one of the codes above.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setAuthentication0(String iface, String ssid, int value);

    /**
     * Key management, a flag set.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setKeyManagement0(String iface, String ssid, int value);

    /**
     * Security protocols, a flag set.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setProtocol0(String iface, String ssid, int value);

    /**
     * EAP methods, a flag set.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setEAPMethod0(String iface, String ssid, int value);

    /**
     * Network status in memory, one of the codes above; never saved.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return true
     */
    public static native boolean setNetworkStatus0(String iface, String ssid, int value);

    /**
     * Signal strength in percent in memory; never saved.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return true
     */
    public static native boolean setSignalStrength0(String iface, String ssid, int value);

    /**
     * Priority, of which the low 8 bits are kept: 300 becomes 44.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPriority0(String iface, String ssid, int value);

    /**
     * Network mode, one of the codes above; the low 8 bits are kept.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setNetworkMode0(String iface, String ssid, int value);

    /**
     * Index of the WEP key to send with, 0 to 3. True whenever there are settings.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether there are settings
     */
    public static native boolean setWepIndex0(String iface, String ssid, int value);

    /**
     * Whether the access point announces the SSID.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return true
     */
    public static native boolean setSsidBroadcasted0(String iface, String ssid, boolean value);

    /**
     * Ciphers. A group cipher alone (8, 16) leaves the pairwise ciphers as they are, 1 leaves the
     * group ciphers as they are, 6 stands for CCMP pairwise with TKIP for the group; any other
     * value sets both. False when what it sets first was the same already.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setEncryption0(String iface, String ssid, int value);

    /**
     * WEP key of an index (0 to 3), in plain. True whenever there are settings.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param index  0 to 3
     * @param value  the new value
     * @return whether there are settings
     */
    public static native boolean setWepKey0(String iface, String ssid, int index, String value);

    // Changes to the secrets of one network: enciphered text, or "" to clear.

    /**
     * WPA pre-shared key, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPreSharedKey0(String iface, String ssid, String value);

    /**
     * EAP password, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setEAPPassword0(String iface, String ssid, String value);

    /**
     * Password of the private key file, phase 1, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPrivateKeyPassword0(String iface, String ssid, String value);

    /**
     * Password of the private key file, phase 2, enciphered.
     *
     * @param iface  name of the adapter
     * @param ssid  of the configured network
     * @param value  the new value
     * @return whether the value has changed
     */
    public static native boolean setPrivateKeyPassword20(String iface, String ssid, String value);
}
