// For test programs in which the waits of the refresh thread do not matter. A second of such a wait
// takes ten milliseconds, or QUICK_SECOND_MS, so that the thread soon sees the signal to stop.

#include "platform/Deadline.h"

#ifndef QUICK_SECOND_MS
#define QUICK_SECOND_MS 10
#endif

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(QUICK_SECOND_MS) * seconds;
}
