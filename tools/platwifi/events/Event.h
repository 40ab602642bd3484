#pragma once

#include <optional>
#include <string>

namespace cli {

/// An event of an interface: what the supplicant reports without being asked. A member that the event has
/// no value for is empty.
struct Event {
    enum class Kind {
        AUTHENTICATING, ///< begins to authenticate with an access point
        ASSOCIATING,    ///< begins to associate with an access point
        CONNECTED,
        ROAMING, ///< is about to change to another access point of the same network
        ROAMED,  ///< is connected to another access point of the same network
        DISCONNECTED,
        WRONG_KEY,
        AUTHENTICATION_REFUSED, ///< by the access point
        ASSOCIATION_REFUSED,    ///< by the access point
        TIMED_OUT,              ///< the access point, or its server, did not answer in time
        SUSPENDED,              ///< a network is not tried for some time, because it failed
        RESUMED,                ///< that time is over
        EAP_STARTED,
        EAP_METHOD_PROPOSED, ///< by the server
        EAP_METHOD_REFUSED,  ///< by this host: the network is not configured for it
        EAP_METHOD_CHOSEN,
        EAP_METHOD_UNUSABLE,  ///< its certificates or its private key cannot be loaded
        CERTIFICATE_SHOWN,    ///< by the server, one event for each certificate of the chain
        CERTIFICATE_REJECTED, ///< the server cannot be trusted; says nothing about the password
        LOGIN_REFUSED,        ///< the identity or the password, by the server
        CREDENTIAL_NEEDED,    ///< one is not configured
        EAP_STATUS,           ///< any other step of the authentication: `meaning` has it
        EAP_SUCCEEDED,
        EAP_FAILED,
        NETWORK_NOT_FOUND,  ///< no access point in range belongs to an enabled network
        ACCESS_POINT_LOST,  ///< the access point of the connection is no longer received
        ACCESS_POINT_FOUND, ///< a scan has found one that was not known
        ACCESS_POINT_GONE,  ///< scans have not found one for some time
        SCAN_STARTED,
        SCAN_FINISHED,
        SCAN_FAILED,
        SIGNAL_CHANGED,
        CHANNEL_CHANGED, ///< the access point changes its channel
        REGULATORY_CHANGED,
        TERMINATING, ///< the supplicant ends, or stops serving the interface
        LOST,        ///< the supplicant has ended without a message
        OTHER        ///< any other message: `text` has it
    };

    Kind kind = Kind::OTHER;
    std::string ssid;             ///< its bytes
    std::optional<int> network;   ///< network id
    std::string bssid;            ///< of the access point
    std::string previousBssid;    ///< ROAMING, ROAMED: of the access point before
    std::optional<int> frequency; ///< MHz
    std::optional<int> signal;    ///< dBm

    /// DISCONNECTED: reason code; refusals: status code; EAP methods: number of the method;
    /// CERTIFICATE_REJECTED, LOGIN_REFUSED, SCAN_FAILED: error number.
    std::optional<int> code;
    std::string meaning; ///< of the code, in plain words; also without a code

    std::optional<bool> isLocal; ///< DISCONNECTED: by this host, not by the access point
    std::optional<int> failures; ///< WRONG_KEY, SUSPENDED: how often the network failed in turn
    std::optional<int> seconds;  ///< WRONG_KEY, SUSPENDED: how long it is not tried
    std::optional<int> depth;    ///< certificates: place in the chain; 0 is the server's own
    std::string certificate;     ///< certificates: the subject
    std::string text;            ///< OTHER: the message, without secrets
};

} // namespace cli
