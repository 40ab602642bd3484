#pragma once

#include "Crew.h"

namespace stress {

/// Calls of the library that check their results. The checks require that no other thread or
/// process changes FIXED_NETWORKS and the worker's guest.

/// Calls that unload and load the settings and the driver, with and without a lock held.
Calls lifetimeCalls();

/// How many times these calls have unloaded or reloaded the settings.
std::uint32_t unloads();

/// Calls that run client commands, and dumps, which discardDumps() keeps from standard error.
Calls commandCalls();
void discardDumps();

/// Calls that read and change the settings in memory.
Calls memoryCalls();

} // namespace stress
