#include "Json.h"

#include <iostream>

namespace cli {

void print(const Json& json) {
    std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace cli
