#pragma once

#include <limits>

namespace cli {

/// The terminal, file or pipe behind a standard stream.
struct Console {
    static constexpr unsigned int UNLIMITED = std::numeric_limits<unsigned int>::max();

    /// @param descriptor  1 or 2
    static Console of(int descriptor);

    bool isTerminal = false;
    bool hasColours = false;        ///< a terminal, but not with NO_COLOR set nor with TERM=dumb
    unsigned int width = UNLIMITED; ///< in cells; a file or a pipe has no limit

    const char* bold() const { return hasColours ? "\033[1m" : ""; }
    const char* green() const { return hasColours ? "\033[32m" : ""; }
    const char* yellow() const { return hasColours ? "\033[33m" : ""; }
    const char* red() const { return hasColours ? "\033[31m" : ""; }
    const char* plain() const { return hasColours ? "\033[0m" : ""; }
};

} // namespace cli
