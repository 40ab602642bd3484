#pragma once

#include <optional>
#include <string>

namespace cli {

/// An access point in range.
struct ScanResult {
    /// Reads a line of the client: BSSID, frequency, signal, flags and SSID, separated by tabs.
    /// Nothing for any other line.
    static std::optional<ScanResult> of(const std::string& line);

    std::string bssid;
    int frequency = 0; ///< MHz
    int signal = 0;    ///< dBm
    std::string flags; ///< as the client prints them
    std::string ssid;  ///< its bytes
};

/// The channel of a frequency in MHz; 0 if the frequency is in none of the bands.
int channelOf(int frequency);

/// The band of a frequency in MHz, such as "5 GHz"; "" if it is in none.
std::string bandOf(int frequency);

/// The security of flags such as "[WPA2-PSK-CCMP][ESS]": words such as "WPA2-PSK", joined by "/"; "open"
/// if there are none.
std::string securityOf(const std::string& flags);

} // namespace cli
