#pragma once

#include <string>
#include <vector>

namespace test {

/// Whether the thread of this process with this id (as PlatformUtil::threadId() tells it) waits for
/// something. A thread that has ended does not.
bool isAsleep(int threadId);

/// The ids of the threads of this process that have this name (15 characters at most).
std::vector<int> threadsNamed(const std::string& name);

/// Returns when there is no such thread. One that has nothing left to do still takes its time to go.
void awaitNoThreadNamed(const std::string& name);

} // namespace test
