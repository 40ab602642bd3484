#pragma once

#include <cstdint>

namespace stress {

/// The programs that the library starts are answered by this process's Supplicant, without a child, so
/// that a command costs microseconds. One command in `oneIn` is answered by a real child, which prints
/// what the supplicant says; 0 for none. A program that links this has
/// Spawn::start() and waitpid() of its own.
void useRealChildren(std::uint32_t oneIn);

/// How many real children there have been.
std::uint32_t realChildren();

} // namespace stress
