#pragma once

#include <string>
#include <vector>

namespace cli {

/// What the command line asks for; what a command does not have keeps its default.
struct Request {
    std::string iface;                    ///< empty for the first that the supplicant lists
    std::string ssid;                     ///< as typed; empty where none was given
    std::vector<std::string> assignments; ///< "NAME=VALUE" each
    unsigned int patience = 30;           ///< seconds that a connection may take
    bool json = false;
    bool full = false;
};

} // namespace cli
