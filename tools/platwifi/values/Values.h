#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace cli {

/// What the command line asks for. A member that a command has no argument for keeps its default.
struct Request {
    std::string iface;                    ///< empty for the first that the supplicant lists
    std::string ssid;                     ///< as typed; empty without one
    std::vector<std::string> assignments; ///< "NAME=VALUE" each
    unsigned int timeout = 30;            ///< seconds that a connection may take
    std::string topic;                    ///< the command to explain; empty for the program
    bool json = false;
    bool full = false;
};

/// A value of a report: nothing, a text, a number, or a boolean.
using Value = std::variant<std::monostate, std::string, int, bool>;

/// Values with their names, in the order in which they are printed.
using Record = std::vector<std::pair<std::string, Value>>;

} // namespace cli
