// Replaces functions of the C library, which have a second name by which they are called here.

#include "support/FailingAllocator.h"

#include <atomic>
#include <cerrno>
#include <cstddef>

extern "C" {
void* __libc_malloc(std::size_t size);                    // NOLINT: the C library's names
void* __libc_calloc(std::size_t count, std::size_t size); // NOLINT
void* __libc_realloc(void* memory, std::size_t size);     // NOLINT
}

namespace {

// With this model the storage exists from the thread's start. The other models allocate it at its
// first use.
__attribute__((tls_model("initial-exec"))) thread_local int pauses = 0;

std::atomic<int> allocationsLeft{0}; // until the one that fails; 0 when none does
std::atomic<bool> hasFailed{false};

bool isToFail() {
    if (pauses > 0 || allocationsLeft.load() == 0 || allocationsLeft.fetch_sub(1) != 1)
        return false;
    hasFailed = true;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

void* malloc(std::size_t size) {
    return isToFail() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    return isToFail() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) {
    return isToFail() ? nullptr : __libc_realloc(memory, size);
}

} // extern "C"

namespace test {

void FailingAllocator::failAt(int n) {
    hasFailed = false;
    allocationsLeft = n;
}

bool FailingAllocator::stop() {
    allocationsLeft = 0;
    return hasFailed;
}

FailingAllocator::Pause::Pause() {
    ++pauses;
}

FailingAllocator::Pause::~Pause() {
    --pauses;
}

} // namespace test
