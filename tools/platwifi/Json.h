#pragma once

#include <nlohmann/json.hpp>

namespace cli {

/// Keeps the order in which members were added.
using Json = nlohmann::ordered_json;

/// Prints it to standard output, and a line feed. What is no UTF-8 becomes U+FFFD.
void print(const Json& json);

} // namespace cli
