#pragma once

#include "Paths.h"

#include <sys/types.h>
#include <vector>

namespace cli {

using platwifi::paths::BLOCK_PATH;

/// The other processes that have the block mapped, as far as this user may see.
std::vector<pid_t> sharersOfBlock();

/// Whether another process may have the block mapped. True also where this user cannot see it.
bool isBlockShared();

/// Removes the block's name unless another process may have the block mapped: a process that joins
/// later has to find the block of those that use it. To be called once, when this process no longer
/// uses the settings.
void leaveSharedBlock();

} // namespace cli
