#pragma once

#include <random>
#include <string>

namespace test {

/// Up to 40 bytes, any but NUL: half of them drawn from those that make and break UTF-8, so that
/// whole, cut and overlong characters are all frequent.
std::string randomBytes(std::mt19937& random);

} // namespace test
