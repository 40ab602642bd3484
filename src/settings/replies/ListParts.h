#pragma once

#include "settings/replies/Columns.h"
#include "settings/replies/WholeLines.h"

#include <cstddef>
#include <string>

namespace platwifi {

/// Whether the supplicant may have left out lines that did not fit into its reply, which begins with line `first`.
inline bool mayLackLines(const Lines& lines, std::size_t first) {
    constexpr std::size_t LONGEST_REPLY = 4096;
    constexpr std::size_t LONGEST_LINE = 256; // an SSID takes 128 characters at most
    std::size_t size = 0;
    for (std::size_t i = first; i < lines.size(); ++i)
        size += lines[i].size() + 1;
    return size + LONGEST_LINE > LONGEST_REPLY;
}

/// Reads list_networks in as many parts as it takes.
/// @param ask  bool(const char* id, Lines& part): asks for the lines behind the network with that id, or for the
///             first part where the id is null; false if the supplicant did not answer
/// @return false if one part was not answered
template <typename Ask>
bool readList(const Ask& ask, Lines& lines) {
    if (!ask(nullptr, lines))
        return false;
    for (std::size_t first = 0; mayLackLines(lines, first);) {
        const int last = decimalOf(lines.back().c_str());
        Lines part;
        if (!ask(std::to_string(last).c_str(), part))
            return false;
        if (!part.empty() && decimalOf(part.front().c_str()) <= last)
            part.clear(); // the supplicant does not continue there
        first = lines.size();
        lines.insert(lines.end(), part.begin(), part.end());
    }
    return true;
}

} // namespace platwifi
