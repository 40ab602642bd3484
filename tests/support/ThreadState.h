#pragma once

#include <string>
#include <vector>

namespace test {

/// Whether the thread of this process with this PlatformUtil::threadId() sleeps. False for a thread
/// that has ended.
bool isAsleep(int threadId);

/// The ids of the threads of this process with this name (15 characters at most).
std::vector<int> threadsNamed(const std::string& name);

/// Returns when there is no such thread. After its last statement a thread still exists for a
/// moment.
void awaitNoThreadNamed(const std::string& name);

} // namespace test
