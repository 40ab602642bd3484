#pragma once

#include "platform/Export.h"

#include <cstddef>
#include <optional>

namespace platform {

/// Memory that processes share under a name.
///
/// No process ever maps an unfinished object, not even when the process that made it died: a new one gets its name
/// in one step, after it was set up, or a lock keeps others from it until then. Of processes that start at the
/// same time, one makes the object and the others join it.
///
/// An object belongs to one thread at a time. Nothing throws.
class PLATFORM_API SharedMemory {
public:
    /// Sets up new memory. On false the memory is discarded.
    using SetUp = bool (*)(void* memory);

    /// The result of joining memory that other processes may use: REFUSED when it is not in use or
    /// not what is expected, BUSY when that could not be found out in time.
    enum class Joining { JOINED, REFUSED, BUSY };
    using Join = Joining (*)(void* memory);

    enum class Result { FAILED, CREATED, JOINED };

    SharedMemory() noexcept = default;
    ~SharedMemory() { detach(); }

    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    /// Maps the object of this name, or makes one when there is none. Detaches what was mapped
    /// before.
    ///
    /// An object is mapped only if it has exactly this size and belongs to root or to the effective
    /// user, and joined only if `join` returns JOINED. A BUSY object keeps its name, and the call
    /// fails. Anything else with this name is replaced by a new object, if this process may remove
    /// it. One line on standard error reports the replacement of what looks like an object of
    /// another user's processes, and one a failure.
    ///
    /// @param name   begins with "/"; any other name and null fail
    /// @param size   in bytes
    /// @param setUp  called with a new object, all zero, that no other process sees
    /// @param join   called with an object that other processes may use
    /// @return FAILED, with nothing mapped, when there is no object for this process. When another
    ///         process holds the lock for changes of the name, that takes a second.
    Result attach(const char* name, std::size_t size, SetUp setUp, Join join) noexcept;

    /// Unmaps the memory, if any is mapped. The object and its name stay.
    void detach() noexcept;

    /// The memory, or null.
    void* data() const noexcept { return m_data; }

    /// Removes the name, whichever object has it now. Processes that have the object mapped keep
    /// it. Null is ignored.
    static void unlink(const char* name) noexcept;

private:
    bool map(int file, std::size_t size) noexcept;
    bool make(int file, std::size_t size, SetUp setUp) noexcept;
    std::optional<Joining> tryJoin(int file, std::size_t size, Join join) noexcept;
    Result giveUp() noexcept;
    Result fail(const char* name, int error) noexcept;
    int publish(const char* name, std::size_t size, SetUp setUp) noexcept;

    void* m_data = nullptr;
    std::size_t m_size = 0;
};

} // namespace platform
