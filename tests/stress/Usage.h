#pragma once

#include <cstddef>
#include <string>

namespace stress {

/// The resources of this process, and the files that it leaves. Two of them are comparable if all threads of
/// the program have ended and the settings are unloaded.
struct Usage {
    std::size_t
        heapBytes; ///< allocated from the C library, 0 with a sanitizer that has its own heap
    std::size_t residentKiB; ///< likewise
    std::size_t threads;
    std::size_t descriptors;
    std::size_t children;      ///< also those that have ended
    std::size_t resultFiles;   ///< under /tmp
    std::size_t sharedObjects; ///< under /dev/shm

    static Usage now();

    std::string text() const;
};

/// Fails when `later` is more than `earlier`. 64 KiB of heap and 2 MiB of memory more are accepted,
/// because the C library may keep memory.
void expectFlat(const Usage& earlier, const Usage& later);

/// Unloads the settings and the driver, and waits until the refresh thread has ended.
void unloadAll();

} // namespace stress
