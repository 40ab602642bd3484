#pragma once

#include <cstdint>

namespace stress {

/// A program that links this has its own Spawn::start() and waitpid(). The Supplicant of this
/// process answers the commands without a child, so a command takes microseconds. One command in
/// `oneIn` runs a real child that prints the answer; 0 for none.
void useRealChildren(std::uint32_t oneIn);

/// The number of real children so far.
std::uint32_t realChildren();

} // namespace stress
