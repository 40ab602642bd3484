#pragma once

// The numbers that networks and the supplicant's state carry, in memory and toward callers. A set
// is the sum of its flags, and 0 where nothing is known; the others hold one value.

/// Security protocols of a network (a set).
enum Protocol : unsigned int {
    PROTOCOL_WPA = 0x1,
    PROTOCOL_RSN = 0x2,
};

/// How keys are agreed on (a set).
enum KeyManagement : unsigned int {
    KEY_MGMT_NONE = 0x1,
    KEY_MGMT_WPA_PSK = 0x2,
    KEY_MGMT_WPA_EAP = 0x4,
    KEY_MGMT_IEEE8021X = 0x8,
    KEY_MGMT_WPA_NONE = 0x10,
};

/// Ciphers for traffic with one station (a set).
enum PairwiseCipher : unsigned int {
    PAIRWISE_NONE = 0x1,
    PAIRWISE_TKIP = 0x2,
    PAIRWISE_CCMP = 0x4,
};

/// Ciphers for traffic to all stations (a set). TKIP and CCMP have the numbers of the pairwise
/// ciphers, so that one number can name both; that is why 0x1 is free.
enum GroupCipher : unsigned int {
    GROUP_TKIP = 0x2,
    GROUP_CCMP = 0x4,
    GROUP_WEP104 = 0x8,
    GROUP_WEP40 = 0x10,
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

/// The 802.11 authentication algorithm (one value).
enum AuthAlg : unsigned int {
    AUTH_ALG_UNKNOWN = 0,
    AUTH_ALG_OPEN = 1,
    AUTH_ALG_SHARED = 2,
    AUTH_ALG_LEAP = 3,
    AUTH_ALG_AUTO = 4,
};

/// Who else is on the network (one value): an access point, or stations only.
enum NetworkMode : unsigned char {
    NETWORK_MODE_MANAGED = 0,
    NETWORK_MODE_ADHOC = 1,
    NETWORK_MODE_UNKNOWN = 2,
};

/// What a configured network is to the supplicant right now (one value; 2 is not in use).
enum NetworkStatus : unsigned int {
    NETWORK_STATUS_UNKNOWN = 0,
    NETWORK_STATUS_ENABLED = 1, ///< configured, and not the current one
    NETWORK_STATUS_CONNECTED = 3,
    NETWORK_STATUS_CONNECTING = 4, ///< the current one, not connected yet
    NETWORK_STATUS_DISABLED = 5,
};

/// What the supplicant is doing, in the order in which a connection comes about.
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
