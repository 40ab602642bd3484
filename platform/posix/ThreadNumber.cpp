#include "ThreadNumber.h"

#include <atomic>

namespace platform {
namespace {

constexpr unsigned int NUMBERS = 1U << THREAD_NUMBER_BITS;
constexpr unsigned int SHARED = NUMBERS - 1; // of all threads for which there is no other

std::atomic<bool> isTaken[SHARED];
std::atomic<unsigned int> next{0};

// The number that was given back last is taken last: an id in memory may be that of a thread that has just ended.
unsigned int take() noexcept {
    for (unsigned int attempt = 0; attempt < SHARED; ++attempt) {
        const unsigned int number = next++ % SHARED;
        if (!isTaken[number].exchange(true))
            return number;
    }
    return SHARED;
}

struct Number {
    Number() noexcept : value(take()) {}
    ~Number() {
        if (value != SHARED)
            isTaken[value] = false;
    }
    Number(const Number&) = delete;
    Number& operator=(const Number&) = delete;

    const unsigned int value;
};

} // namespace

unsigned int threadNumber() noexcept {
    thread_local const Number own;
    return own.value;
}

} // namespace platform
