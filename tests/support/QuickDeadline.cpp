// For a test program that is not about how long the refresh thread waits: a second passes in ten
// milliseconds there, so that the thread notices at once that it is to end.

#include "platform/Deadline.h"

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(10) * seconds;
}
