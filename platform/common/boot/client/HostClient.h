#pragma once

#include "Arguments.h"

namespace client {

/// Runs the host's own client in place of this program, with the same arguments. Returns only where the host has
/// none.
void runHostClient(const Arguments& arguments) noexcept;

} // namespace client
