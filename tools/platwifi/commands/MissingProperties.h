#pragma once

#include "host/BestSecurity.h"
#include "process/UserInput.h"

#include <optional>
#include <string>
#include <vector>

namespace cli {

/// Properties as on the command line, "NAME=VALUE" each.
using Assignments = std::vector<std::string>;

/// Whether they have this property, also with an empty value.
bool isGiven(const Assignments& assignments, const std::string& name);

/// What they are credentials for; nothing without any.
std::optional<Credentials> givenCredentials(const Assignments& assignments);

/// Checks that a network takes the credentials that are given.
/// @param shownSsid  for the message
/// @param security   in words, such as "open"
/// @throws Failure if it takes others, or none
void requireFitting(const Assignments& given, Credentials credentials, const std::string& shownSsid,
                    const std::string& security);

/// Completes the properties by what the network needs and the user has not given. On a terminal the user is asked:
/// here for what may be seen, and where a secret is read for that.
/// @throws Failure that lists what is missing where the user cannot be asked
/// @throws Interrupted
void completeCredentials(Assignments& assignments, Credentials credentials,
                         const std::string& shownSsid, const UserInput& input);

} // namespace cli
