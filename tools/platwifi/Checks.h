#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cli {

enum class Health { good, note, bad };

/// What was looked at, and what came of it.
struct Finding {
    std::string subject; ///< such as "control socket"
    Health health = Health::good;
    std::string found;
    std::string toDo; ///< empty where there is nothing to do
};

/// Looks at everything that is easily wrong on a host, most basic thing first.
/// @param iface  "" for the first interface that the supplicant lists
std::vector<Finding> examine(const std::string& iface);

/// The first thing that keeps the supplicant from being reached, if there is one: the client is
/// missing, the supplicant does not run, its control socket is closed to this user.
std::optional<Finding> obstacle(const std::string& iface);

} // namespace cli
