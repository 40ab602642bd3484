#pragma once

#include <iostream>
#include <nlohmann/json.hpp>

namespace cli {

/// Keeps the order in which members were added.
using Json = nlohmann::ordered_json;

/// Prints it, and a line feed. What is no UTF-8 becomes U+FFFD.
inline void print(const Json& json) {
    std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace cli
