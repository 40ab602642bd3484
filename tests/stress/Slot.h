#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace stress {

/// What a process that saves does, and how long it may take beyond what is documented.
struct Operation {
    const char* name;
    std::uint32_t documentedMilliseconds; ///< that a stopped process may hold it up
};

enum OperationNumber : std::uint32_t { LOAD, SAVE, UNLOAD, OPERATIONS };

// A lock of the shared block is waited for a second at most. A load takes one of them, and may wait a
// second for the folder of shared objects. An unload waits for a turn of the refresh thread, which takes
// five at most, and takes one itself. A save takes none.
constexpr Operation OPERATION[OPERATIONS] = {{"load", 2000}, {"save", 0}, {"unload", 6000}};

constexpr std::uint32_t ALLOWED_MILLISECONDS = 1000; // beyond that
constexpr std::chrono::milliseconds BEAT{5};

constexpr std::uint32_t SLOTS = 8;

/// What a process that saves tells the one that kills it, in memory that both share. Times are counted
/// in beats of a thread of the process that saves, so that they pass neither while it is stopped nor
/// while the machine is busy with others.
struct Slot {
    std::atomic<std::uint32_t> beats;     ///< 1 at the start
    std::atomic<std::uint32_t> began;     ///< beats at the start of the operation in progress, or 0
    std::atomic<std::uint32_t> operation; ///< the operation in progress
    std::atomic<std::uint32_t> longest[OPERATIONS]; ///< beats, of all that came to an end
    std::atomic<std::uint32_t> saves;
    std::atomic<std::uint32_t> refreshes;   ///< reloads that another process has caused
    std::atomic<std::uint32_t> holdsShared; ///< whether it holds a lock of the shared block
    std::atomic<std::uint32_t> isToEnd;     ///< set by the other side
    std::atomic<std::uint32_t> staysLoaded; ///< set by the other side: it unloads at its end alone
};
static_assert(std::atomic<std::uint32_t>::is_always_lock_free);

} // namespace stress
