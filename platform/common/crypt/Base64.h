#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

using Bytes = std::vector<unsigned char>;

std::string toBase64(const Bytes& bytes);

/// Decodes `text` into `bytes`. False unless `text` is exactly what toBase64() makes.
bool fromBase64(std::string_view text, Bytes& bytes);

} // namespace platform
