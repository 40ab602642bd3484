#pragma once

namespace client {

/// Whether this program may be the file with this path. Without this check, a copy of it in place of the host's
/// client would start itself for ever.
bool mayBeThisProgram(const char* path) noexcept;

} // namespace client
