#pragma once

namespace test {

/// Restarts this program in a mount namespace of its own with empty /tmp, /run and /dev/shm, so
/// that fixed paths and names are safe to use and tests run side by side. Without root it takes a
/// user namespace for it. Returns where that has been done; ends the program with a message and
/// status 77 (skipped) where the system does not allow it.
void enterPrivateWorld(char* arguments[]);

} // namespace test
