#pragma once

#include <random>
#include <string>

namespace test {

/// Up to 40 bytes without NUL. Half of them are bytes that begin, continue or break UTF-8
/// sequences, so that complete, truncated and overlong characters are all frequent.
std::string randomBytes(std::mt19937& random);

} // namespace test
