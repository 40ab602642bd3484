#pragma once

#include "Crew.h"

namespace stress {

/// Calls of the library that check what is determined of their answer, as long as no other thread and
/// no other process changes the networks of FIXED_NETWORKS and the worker's guest.

/// Ends and makes again the settings and the driver, with and without a lock held.
Calls lifetimeCalls();

/// How many times they have unloaded or reloaded the settings.
std::uint32_t unloads();

/// Runs client commands, and dumps, which discardDumps() keeps from standard error.
Calls commandCalls();
void discardDumps();

/// Looks at the settings and changes them in memory.
Calls memoryCalls();

} // namespace stress
