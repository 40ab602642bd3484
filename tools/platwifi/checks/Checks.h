#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cli {

enum class Health {
    good,
    note, ///< nothing that keeps Wi-Fi from working, but somebody may want to know
    bad
};

/// What was looked at, and what came of it. The texts hold nothing secret, and may hold anything
/// that a file name can.
struct Finding {
    std::string subject; ///< such as "control socket"
    Health health = Health::good;
    std::string found;
    std::string toDo; ///< empty where there is nothing to do
};

/// Looks at everything that is easily wrong on a host, most basic thing first, and changes nothing.
/// What cannot be looked at, because something more basic is wrong, is left out. Takes some seconds
/// where the supplicant does not answer.
/// @param iface  "" for the first interface that the supplicant lists
std::vector<Finding> examine(const std::string& iface);

/// The first thing that keeps the supplicant from being reached, if there is one: the client is
/// missing, the supplicant does not run, its control socket is closed to this user. Its texts can
/// be understood without the subject.
std::optional<Finding> obstacle(const std::string& iface);

/// That the client is missing, if it is: the one obstacle that is found without running anything.
std::optional<Finding> missingClient();

} // namespace cli
