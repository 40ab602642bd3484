#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace stress {

/// An operation of a process that saves, and how long another process may delay it.
struct Operation {
    const char* name;
    std::uint32_t documentedMilliseconds; ///< the longest delay by a stopped process, as documented
};

enum OperationNumber : std::uint32_t { LOAD, SAVE, UNLOAD, OPERATIONS };

// A wait for a lock of the shared block takes a second at most. A load takes one lock, and may wait
// a second for the folder of shared objects. An unload waits for a cycle of the refresh thread,
// which takes five seconds at most, and takes one lock itself. A save takes none.
constexpr Operation OPERATION[OPERATIONS] = {{"load", 2000}, {"save", 0}, {"unload", 6000}};

constexpr std::uint32_t ALLOWED_MILLISECONDS = 1000; // in addition
constexpr std::chrono::milliseconds BEAT{5};

constexpr std::uint32_t SLOTS = 8;

/// The progress of a process that saves, in memory that it shares with the process that kills it.
/// Times are counted in beats of a thread of the process that saves. So no time passes while that
/// process is stopped or waits for a processor.
struct Slot {
    std::atomic<std::uint32_t> beats;     ///< 1 at the start
    std::atomic<std::uint32_t> began;     ///< beats at the start of the operation in progress, or 0
    std::atomic<std::uint32_t> operation; ///< the operation in progress
    std::atomic<std::uint32_t> longest[OPERATIONS]; ///< in beats, of all completed operations
    std::atomic<std::uint32_t> saves;
    std::atomic<std::uint32_t> refreshes;   ///< reloads that another process has caused
    std::atomic<std::uint32_t> holdsShared; ///< whether it holds a lock of the shared block
    std::atomic<std::uint32_t> isToEnd;     ///< set by the other process
    std::atomic<std::uint32_t>
        staysLoaded; ///< set by the other process: do not unload before the end
};
static_assert(std::atomic<std::uint32_t>::is_always_lock_free);

} // namespace stress
