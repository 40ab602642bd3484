#pragma once

#include "checks/Finding.h"

#include <optional>
#include <string>
#include <vector>

namespace cli {

/// Runs all checks, in the order of their table, and changes nothing. Leaves out the checks that cannot
/// succeed because an earlier one has failed. Takes some seconds if the supplicant does not answer.
/// @param iface  "" for the first interface that the supplicant lists
std::vector<Finding> examine(const std::string& iface);

/// The first check that shows why the supplicant cannot be reached, such as: the client is missing,
/// the supplicant does not run, its control socket is closed to this user. Its texts can be understood
/// without the subject.
std::optional<Finding> obstacle(const std::string& iface);

/// The obstacle that the client is missing. Runs no program.
std::optional<Finding> missingClient();

} // namespace cli
