#pragma once

#include <string>
#include <vector>

namespace cli::api {

/// The words that values of an enumeration in Java stand for, in their order.
/// @param table  "reason", "event", "security", "state", "keyManagement", "frameProtection", "eap" or
///               "property"
/// @return nothing for any other name
std::vector<std::string> wordsOf(const std::string& table);

} // namespace cli::api
