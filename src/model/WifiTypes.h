#pragma once

// The numbers for the properties of a network and for the supplicant's state, in memory and for callers. A set
// is the sum of its flags, and 0 where nothing is known; the others are one value.

/// Security protocols of a network (a set).
enum Protocol : unsigned int {
    PROTOCOL_WPA = 0x1,
    PROTOCOL_RSN = 0x2,
};

/// Key management (a set).
enum KeyManagement : unsigned int {
    KEY_MGMT_NONE = 0x1,
    KEY_MGMT_WPA_PSK = 0x2,
    KEY_MGMT_WPA_EAP = 0x4,
    KEY_MGMT_IEEE8021X = 0x8,
    KEY_MGMT_WPA_NONE = 0x10,

    // These are known under the profile `modern`.
    KEY_MGMT_SAE = 0x20, ///< WPA3-Personal
    KEY_MGMT_OWE = 0x40, ///< an open network with encryption
    KEY_MGMT_WPA_PSK_SHA256 = 0x80,
    KEY_MGMT_WPA_EAP_SHA256 = 0x100,
    KEY_MGMT_FT_PSK = 0x200,
    KEY_MGMT_FT_EAP = 0x400,
    KEY_MGMT_FT_SAE = 0x800,
    KEY_MGMT_SUITE_B_192 = 0x1000, ///< WPA3-Enterprise with 192 bits
};

/// Ciphers for unicast traffic (a set).
enum PairwiseCipher : unsigned int {
    PAIRWISE_NONE = 0x1,
    PAIRWISE_TKIP = 0x2,
    PAIRWISE_CCMP = 0x4,

    // These are known under the profile `modern`. The numbers between are those of the group ciphers.
    PAIRWISE_GCMP = 0x20,
    PAIRWISE_GCMP_256 = 0x40,
    PAIRWISE_CCMP_256 = 0x80,
};

/// Ciphers for broadcast and multicast traffic (a set). Those that are pairwise ciphers, too, have the same
/// number there, so that one number can stand for both kinds; 0x1 is PAIRWISE_NONE and not in use here.
enum GroupCipher : unsigned int {
    GROUP_TKIP = 0x2,
    GROUP_CCMP = 0x4,
    GROUP_WEP104 = 0x8,
    GROUP_WEP40 = 0x10,

    // These are known under the profile `modern`.
    GROUP_GCMP = 0x20,
    GROUP_GCMP_256 = 0x40,
    GROUP_CCMP_256 = 0x80,
};

/// EAP methods (a set).
enum EapMode : unsigned int {
    EAP_TLS = 0x1,
    EAP_PEAP = 0x2,
    EAP_TTLS = 0x4,
    EAP_MD5 = 0x8,
    EAP_LEAP = 0x10,
    EAP_MSCHAPV2 = 0x20,
    EAP_GTC = 0x40,
    EAP_OTP = 0x80,
    EAP_PSK = 0x100,
    EAP_PAX = 0x200,
    EAP_FAST = 0x400,
};

/// The IEEE 802.11 authentication algorithm (one value).
enum AuthAlg : unsigned int {
    AUTH_ALG_UNKNOWN = 0,
    AUTH_ALG_OPEN = 1,
    AUTH_ALG_SHARED = 2,
    AUTH_ALG_LEAP = 3,
    AUTH_ALG_AUTO = 4,
};

/// Protection of management frames, IEEE 802.11w (one value). Known under the profile `modern`.
enum Pmf : unsigned int {
    PMF_DISABLED = 0,
    PMF_OPTIONAL = 1,
    PMF_REQUIRED = 2,
    PMF_DEFAULT = 3, ///< not set for this network: what the supplicant does for all
};

/// The kind of network (one value): with an access point, or of stations only (IBSS).
enum NetworkMode : unsigned char {
    NETWORK_MODE_MANAGED = 0,
    NETWORK_MODE_ADHOC = 1,
    NETWORK_MODE_UNKNOWN = 2,
};

/// The status of a configured network (one value; 2 is not in use).
enum NetworkStatus : unsigned int {
    NETWORK_STATUS_UNKNOWN = 0,
    NETWORK_STATUS_ENABLED = 1, ///< the supplicant may select it
    NETWORK_STATUS_CONNECTED = 3,
    NETWORK_STATUS_CONNECTING = 4, ///< the current network, not connected yet
    NETWORK_STATUS_DISABLED = 5,
};

/// The supplicant's state, in the order of the steps to a connection.
enum WpaState : unsigned int {
    WPA_STATE_UNKNOWN = 0,
    WPA_STATE_DISCONNECTED = 1,
    WPA_STATE_IDLE = 2,
    WPA_STATE_SCANNING = 3,
    WPA_STATE_ASSOCIATING = 4,
    WPA_STATE_ASSOCIATED = 5,
    WPA_STATE_4WAY_HANDSHAKE = 6,
    WPA_STATE_GROUP_HANDSHAKE = 7,
    WPA_STATE_COMPLETED = 8,
};
