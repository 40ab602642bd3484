#pragma once

#include <string>
#include <vector>

namespace test {

/// As much of the name of the refresh thread as the system keeps.
inline constexpr const char* REFRESH_THREAD = "tWifiRefreshWat";

/// The system's number of the calling thread, which PlatformUtil::threadId() need not be.
int ownThread();

/// Whether the thread of this process with this number sleeps. False for a thread that has ended.
bool isAsleep(int thread);

/// The numbers of the threads of this process with this name (15 characters at most).
std::vector<int> threadsNamed(const std::string& name);

/// Returns when there is no such thread. After its last statement a thread still exists for a
/// moment.
void awaitNoThreadNamed(const std::string& name);

} // namespace test
