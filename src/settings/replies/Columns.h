#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

// The columns of a line that the client prints. All of it is in this header because the command line, which
// reads such lines too, links only what the library exports.

namespace platwifi {

using Columns = std::vector<std::string>;

inline constexpr std::size_t COLUMNS_OF_LIST = 4; ///< id, SSID, BSSID, flags

/// The columns of a line, which tabs separate. Empty ones count; a line without a tab is one column.
inline Columns columnsOf(const std::string& line) {
    Columns columns;
    std::size_t start = 0;
    for (std::size_t tab = line.find('\t'); tab != std::string::npos;
         tab = line.find('\t', start)) {
        columns.push_back(line.substr(start, tab - start));
        start = tab + 1;
    }
    columns.push_back(line.substr(start));
    return columns;
}

/// The columns that are not empty, of the first 256 characters of a line. So a network without an SSID
/// has its BSSID in the second of these columns. Kept for a load and a status refresh.
inline Columns filledColumnsOf(const std::string& line) {
    constexpr std::size_t CHARACTERS = 256;
    Columns columns = columnsOf(line.substr(0, CHARACTERS));
    const auto isEmpty = [](const std::string& column) { return column.empty(); };
    columns.erase(std::remove_if(columns.begin(), columns.end(), isEmpty), columns.end());
    return columns;
}

/// Whether a column of list_networks can hold a BSSID: "any", or a text with a colon. An SSID of this
/// form looks the same.
inline bool isBssidColumn(const std::string& column) {
    return column == "any" || column.find(':') != std::string::npos;
}

/// The number that a text begins with, 0 where it begins with none. One that does not fit into an int gives
/// the nearest that does.
inline int decimalOf(const char* text) {
    constexpr long long LOWEST = std::numeric_limits<int>::min();
    constexpr long long HIGHEST = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::strtoll(text, nullptr, 10), LOWEST, HIGHEST));
}

} // namespace platwifi
