// For a virtual machine whose tests are not about how long a scan is waited for: a second passes in ten
// milliseconds there.

#include "platform/PlatformUtil.h"

#include <chrono>
#include <thread>

void PlatformUtil::sleep(int milliseconds) noexcept {
    std::this_thread::sleep_for(std::chrono::microseconds(10) * milliseconds);
}
