#pragma once

#include <cstddef>
#include <string>

namespace stress {

/// What this process uses, and what its work leaves on the system. To be compared at points where all
/// threads of the program have ended and the settings are unloaded.
struct Usage {
    std::size_t
        heapBytes; ///< handed out by the C library, 0 where a sanitizer has a heap of its own
    std::size_t residentKiB; ///< likewise
    std::size_t threads;
    std::size_t descriptors;
    std::size_t children;      ///< that have ended, too
    std::size_t resultFiles;   ///< under /tmp
    std::size_t sharedObjects; ///< under /dev/shm

    static Usage now();

    std::string text() const;
};

/// Fails where `later` is more than `earlier`: a few KiB of the heap and 2 MiB of memory apart, which the C
/// library keeps or not.
void expectFlat(const Usage& earlier, const Usage& later);

/// Ends the settings and waits until the refresh thread is gone.
void unloadAll();

} // namespace stress
