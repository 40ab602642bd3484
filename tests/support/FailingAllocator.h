#pragma once

namespace test {

/// The allocator of a program that is linked with `failing_allocator`: malloc(), calloc() and realloc(),
/// and so the operators of C++, of all its threads. It is that of the C library until it is told to
/// fail once.
class FailingAllocator {
public:
    /// Makes the n-th allocation from now on fail, counted from 1.
    static void failAt(int n);

    /// Takes that back.
    /// @return whether an allocation has failed
    static bool stop();

    /// While it lives, allocations of the calling thread neither count nor fail: they are those of the
    /// test itself.
    class Pause {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };
};

} // namespace test
