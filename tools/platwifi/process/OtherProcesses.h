#pragma once

#include "Paths.h"

#include <sys/types.h>
#include <vector>

namespace cli {

using platwifi::paths::BLOCK_PATH;

/// The other processes that share the library's memory, as far as this user may see.
std::vector<pid_t> sharersOfBlock();

/// Ends this process's part in the shared memory. Others who share it go on finding each other by its
/// name, which a detachment in the library's way would take from them; without others the name goes.
void leaveSharedBlock();

/// Tells the others that the configuration was saved, by going on as a program that does nothing
/// else: the refresh thread of this one would be the first to hear of it. For the very end of a
/// program: the process ends with this status, or by the signal of which it is the negative number.
/// Comes back where there is nobody to tell, or nothing can be started.
void tellOthers(char* const arguments[], int status);

/// What tellOthers() goes on as.
/// @return whether these arguments ask for it; then the process shall end
bool isTeller(int count, char* const arguments[]);

/// Does what tellOthers() goes on for, and ends the process with the status that it was given.
[[noreturn]] void tell(char* const arguments[]);

} // namespace cli
