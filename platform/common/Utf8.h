#pragma once

#include <cstddef>

namespace platform {

/// The length in bytes of the UTF-8 character at the start of NUL-terminated `text`. 0 at the NUL
/// and at anything that is not well-formed: a continuation byte, a truncated or overlong sequence,
/// a surrogate, a value above U+10FFFF.
std::size_t utf8CharacterLength(const char* text) noexcept;

} // namespace platform
