// For a program without tests, such as the command line or a Java virtual machine: a second of the refresh
// thread's waits and of PlatformUtil::sleep() takes ten milliseconds.

#include "platform/Deadline.h"
#include "platform/PlatformUtil.h"

#include <chrono>
#include <thread>

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(10) * seconds;
}

void PlatformUtil::sleep(int milliseconds) noexcept {
    std::this_thread::sleep_for(std::chrono::microseconds(10) * milliseconds);
}
