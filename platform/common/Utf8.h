#pragma once

#include <cstddef>

namespace platform {

/// The length in bytes of the UTF-8 character that NUL-terminated `text` begins with, or 0 where it
/// begins with none: at the NUL, and at a byte that is stray, cut short, overlong, half of a
/// surrogate pair or beyond U+10FFFF.
std::size_t utf8CharacterLength(const char* text) noexcept;

} // namespace platform
