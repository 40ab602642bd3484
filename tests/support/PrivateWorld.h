#pragma once

namespace test {

/// Restarts this program in its own mount namespace with empty /tmp, /run and /dev/shm, so that
/// tests can use fixed paths and run side by side. Without root it uses a user namespace. Returns
/// in the restarted program. Exits with a message and status 77 (skipped) when the system does not
/// allow it.
void enterPrivateWorld(char* arguments[]);

} // namespace test
