package com.quorvel.platwifi;

/**
 * Names for the numbers of {@link BWifiPlatformService}. Those of a flag set are added up; those of an enumeration are
 * one value.
 *
 * <pre>{@code
 * int keys = BWifiPlatformService.getKeyManagement0("wlan0", "home");
 * if ((keys & PlatformConstants.KEY_MANAGEMENT_WPA_PSK) != 0)
 *     System.out.println("home has a pre-shared key");
 * }</pre>
 *
 * <p>Those marked with "modern" exist under the profile {@code modern} only.
 */
public final class PlatformConstants {
    // Protocol, a flag set.

    /** Protocol: the first version of WPA. */
    public static final int PROTOCOL_WPA = 0x1;
    /** Protocol: WPA2 and WPA3. */
    public static final int PROTOCOL_RSN = 0x2;

    // Key management, a flag set.

    /** Key management: open, or WEP. */
    public static final int KEY_MANAGEMENT_NONE = 0x1;
    /** Key management: a pre-shared key. */
    public static final int KEY_MANAGEMENT_WPA_PSK = 0x2;
    /** Key management: a login on a server. */
    public static final int KEY_MANAGEMENT_WPA_EAP = 0x4;
    /** Key management: IEEE 802.1X with dynamic WEP keys. */
    public static final int KEY_MANAGEMENT_IEEE8021X = 0x8;
    /** Key management: WPA without access point. */
    public static final int KEY_MANAGEMENT_WPA_NONE = 0x10;
    /** Key management: WPA3 with a password (modern). */
    public static final int KEY_MANAGEMENT_SAE = 0x20;
    /** Key management: encryption without a password (modern). */
    public static final int KEY_MANAGEMENT_OWE = 0x40;
    /** Key management: a pre-shared key, with SHA-256 (modern). */
    public static final int KEY_MANAGEMENT_WPA_PSK_SHA256 = 0x80;
    /** Key management: a login, with SHA-256 (modern). */
    public static final int KEY_MANAGEMENT_WPA_EAP_SHA256 = 0x100;
    /** Key management: a pre-shared key, with fast transition (modern). */
    public static final int KEY_MANAGEMENT_FT_PSK = 0x200;
    /** Key management: a login, with fast transition (modern). */
    public static final int KEY_MANAGEMENT_FT_EAP = 0x400;
    /** Key management: WPA3 with fast transition (modern). */
    public static final int KEY_MANAGEMENT_FT_SAE = 0x800;
    /** Key management: WPA3-Enterprise with 192 bits (modern). */
    public static final int KEY_MANAGEMENT_SUITE_B_192 = 0x1000;

    // Pairwise cipher, a flag set.

    /** Pairwise cipher: none. */
    public static final int PAIRWISE_NONE = 0x1;
    /** Pairwise cipher: TKIP. */
    public static final int PAIRWISE_TKIP = 0x2;
    /** Pairwise cipher: CCMP. */
    public static final int PAIRWISE_CCMP = 0x4;
    /** Pairwise cipher: GCMP (modern). */
    public static final int PAIRWISE_GCMP = 0x20;
    /** Pairwise cipher: GCMP with 256 bits (modern). */
    public static final int PAIRWISE_GCMP_256 = 0x40;
    /** Pairwise cipher: CCMP with 256 bits (modern). */
    public static final int PAIRWISE_CCMP_256 = 0x80;

    // Group cipher, a flag set.

    /** Group cipher: TKIP. */
    public static final int GROUP_TKIP = 0x2;
    /** Group cipher: CCMP. */
    public static final int GROUP_CCMP = 0x4;
    /** Group cipher: WEP with 104 bits. */
    public static final int GROUP_WEP104 = 0x8;
    /** Group cipher: WEP with 40 bits. */
    public static final int GROUP_WEP40 = 0x10;
    /** Group cipher: GCMP (modern). */
    public static final int GROUP_GCMP = 0x20;
    /** Group cipher: GCMP with 256 bits (modern). */
    public static final int GROUP_GCMP_256 = 0x40;
    /** Group cipher: CCMP with 256 bits (modern). */
    public static final int GROUP_CCMP_256 = 0x80;

    // EAP method, a flag set.

    /** EAP method: TLS. */
    public static final int EAP_TLS = 0x1;
    /** EAP method: PEAP. */
    public static final int EAP_PEAP = 0x2;
    /** EAP method: TTLS. */
    public static final int EAP_TTLS = 0x4;
    /** EAP method: MD5. */
    public static final int EAP_MD5 = 0x8;
    /** EAP method: LEAP. */
    public static final int EAP_LEAP = 0x10;
    /** EAP method: MSCHAPV2. */
    public static final int EAP_MSCHAPV2 = 0x20;
    /** EAP method: GTC. */
    public static final int EAP_GTC = 0x40;
    /** EAP method: OTP. */
    public static final int EAP_OTP = 0x80;
    /** EAP method: PSK. */
    public static final int EAP_PSK = 0x100;
    /** EAP method: PAX. */
    public static final int EAP_PAX = 0x200;
    /** EAP method: FAST. */
    public static final int EAP_FAST = 0x400;

    // Authentication algorithm, an enumeration.

    /** Authentication algorithm: unknown. */
    public static final int AUTHENTICATION_UNKNOWN = 0;
    /** Authentication algorithm: open. */
    public static final int AUTHENTICATION_OPEN = 1;
    /** Authentication algorithm: shared key. */
    public static final int AUTHENTICATION_SHARED = 2;
    /** Authentication algorithm: LEAP. */
    public static final int AUTHENTICATION_LEAP = 3;
    /** Authentication algorithm: what the supplicant chooses. */
    public static final int AUTHENTICATION_AUTOMATIC = 4;

    // Network mode, an enumeration.

    /** Network mode: with an access point. */
    public static final int MODE_MANAGED = 0;
    /** Network mode: without. */
    public static final int MODE_AD_HOC = 1;
    /** Network mode: unknown. */
    public static final int MODE_UNKNOWN = 2;

    // Network status, an enumeration.

    /** Network status: unknown. */
    public static final int STATUS_UNKNOWN = 0;
    /** Network status: the supplicant may choose it. */
    public static final int STATUS_ENABLED = 1;
    /** Network status: the network of the connection. */
    public static final int STATUS_CONNECTED = 3;
    /** Network status: the supplicant connects to it. */
    public static final int STATUS_CONNECTING = 4;
    /** Network status: the supplicant does not choose it. */
    public static final int STATUS_DISABLED = 5;

    // Supplicant state, an enumeration.

    /** Supplicant state: unknown. */
    public static final int STATE_UNKNOWN = 0;
    /** Supplicant state: no connection. */
    public static final int STATE_DISCONNECTED = 1;
    /** Supplicant state: no network to connect to. */
    public static final int STATE_IDLE = 2;
    /** Supplicant state: looks for access points. */
    public static final int STATE_SCANNING = 3;
    /** Supplicant state: begins to associate. */
    public static final int STATE_ASSOCIATING = 4;
    /** Supplicant state: is associated. */
    public static final int STATE_ASSOCIATED = 5;
    /** Supplicant state: 4-way handshake. */
    public static final int STATE_FOUR_WAY_HANDSHAKE = 6;
    /** Supplicant state: group handshake. */
    public static final int STATE_GROUP_HANDSHAKE = 7;
    /** Supplicant state: connected. */
    public static final int STATE_COMPLETED = 8;

    private PlatformConstants() {}
}
