#pragma once

#include "platform/FileDescriptor.h"
#include "platform/PlatformUtil.h"
#include "supplicant/Arguments.h"

namespace platwifi {

/// Runs one child at raised priority, its output going to `resultFile`, and reaps it.
///
/// The child is looked at every 50 ms. One that still runs at the 100th look is killed, with a
/// message on standard error, and again every 2000 ms while it runs. A pause between two looks,
/// after a kill too, ends early when the child does.
///
/// @param launchMutex  held from opening the result file until the child is reaped, so that
///                     children run one at a time
/// @param command      what the message calls the child; may be null
/// @param resultFile   created with mode 0440, or emptied; the caller removes it
/// @return true only when the child exited with status 0. False, without a child, for a null
///         `resultFile` and an incomplete list. False, with one line on standard error in a
///         process, when its status was lost.
bool runChild(PlatformMutex& launchMutex, const ArgumentList& arguments, const char* command,
              const char* resultFile);

/// The same with an open file for the output.
bool runChild(PlatformMutex& launchMutex, const ArgumentList& arguments, const char* command,
              const platform::FileDescriptor& output);

/// Whether the last child of the calling thread was killed because it did not end.
bool lastChildWasKilled() noexcept;

} // namespace platwifi
