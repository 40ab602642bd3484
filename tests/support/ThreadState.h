#pragma once

namespace test {

/// Whether the thread of this process with this id (as PlatformUtil::threadId() tells it) waits for
/// something. A thread that has ended does not.
bool isAsleep(int threadId);

} // namespace test
