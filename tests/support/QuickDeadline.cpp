// For a test program that is not about how long the refresh thread waits: a second passes in ten
// milliseconds there (QUICK_SECOND_MS, where that is defined), so that the thread notices at once that it
// is to end.

#include "platform/Deadline.h"

#ifndef QUICK_SECOND_MS
#define QUICK_SECOND_MS 10
#endif

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(QUICK_SECOND_MS) * seconds;
}
