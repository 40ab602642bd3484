#pragma once

#include <optional>
#include <string>

namespace cli {

/// An access point of a scan.
struct ScanResult {
    /// From a line of the client: BSSID, frequency, signal, flags and SSID, separated by tabs.
    /// Nothing for a line that is none.
    static std::optional<ScanResult> of(const std::string& line);

    std::string bssid;
    int frequency = 0; ///< MHz
    int signal = 0;    ///< dBm
    std::string flags; ///< as the client prints them
    std::string ssid;  ///< in the client's notation
};

/// The channel of a frequency in MHz; 0 for one that is in none of the bands.
int channelOf(int frequency);

/// Flags such as "[WPA2-PSK-CCMP][ESS]" in words, "WPA2-PSK", joined by "/"; "open" without security.
std::string securityOf(const std::string& flags);

} // namespace cli
