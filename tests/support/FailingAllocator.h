#pragma once

namespace test {

/// Controls the allocator of a program that is linked with `failing_allocator`: malloc(), calloc()
/// and realloc(), and so operator new, on all its threads. It is that of the C library, but can
/// fail once.
class FailingAllocator {
public:
    /// Makes the n-th allocation from now on fail, counted from 1.
    static void failAt(int n);

    /// Makes no further allocation fail.
    /// @return whether an allocation has failed
    static bool stop();

    /// During its lifetime, allocations of the calling thread neither count nor fail. For those of
    /// the test itself.
    class Pause {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };
};

} // namespace test
