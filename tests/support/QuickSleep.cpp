// For test programs in which the length of PlatformUtil::sleep() does not matter: a second takes
// ten milliseconds.

#include "platform/PlatformUtil.h"

#include <chrono>
#include <thread>

void PlatformUtil::sleep(int milliseconds) noexcept {
    std::this_thread::sleep_for(std::chrono::microseconds(10) * milliseconds);
}
