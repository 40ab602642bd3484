#pragma once

namespace platwifi {

/// What the status says that matters here.
enum class StatusKind { OTHER, SSID, STATE };

/// A line of the status as it was read.
struct StatusLine {
    StatusKind kind;
    const char* value; ///< what follows the first equals sign; empty without one
};

/// The operations that read a status. Under the profile `device` each recognizes the lines by rules of its own,
/// which are kept because callers rely on what comes of them. Under `modern` a key must stand at the beginning
/// of its line.
enum class StatusReader {
    /// A load: a line that holds the key of another line, "bssid=" for example, is no SSID and no state.
    LOAD,

    /// getCurrentStatus(): the line of the state is looked for first. "ssid=" is found inside "bssid=", too,
    /// so that the BSSID is taken for the SSID until the line of the SSID follows. quirk: STATUS-9
    CURRENT_STATUS,

    /// getCurrentNetwork(): an SSID must stand at the beginning of its line. The state is not read.
    CURRENT_NETWORK,
};

/// Reads a line of the status as that operation does. The value lies in the line.
StatusLine readStatusLine(const char* line, StatusReader reader);

} // namespace platwifi
