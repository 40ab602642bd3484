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
    std::string sort = "signal";          ///< a name of scanOrders()
    std::string topic;                    ///< the command to explain; empty for the program
    bool json = false;
    bool full = false;
    bool hidden = false; ///< the access point does not send its SSID
    std::string eap;     ///< a method; empty without one
};

struct Member;

/// Values with their names, in the order in which they are printed.
using Record = std::vector<Member>;

/// A value of a report: nothing, a text, a number, a boolean, or values with names.
using Value = std::variant<std::monostate, std::string, int, bool, Record>;

struct Member : std::pair<std::string, Value> {
    using std::pair<std::string, Value>::pair;
};

} // namespace cli
