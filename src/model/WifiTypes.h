#pragma once

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
