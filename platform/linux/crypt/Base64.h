#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

using Bytes = std::vector<unsigned char>;

std::string toBase64(const Bytes& bytes);

/// Puts the decoded bytes into `bytes`. False where `text` is not exactly what toBase64() makes.
bool fromBase64(std::string_view text, Bytes& bytes);

} // namespace platform
