#pragma once

#include "platform/Export.h"

#include <cstddef>
#include <optional>

namespace platform {

/// Memory that processes share under a name.
///
/// A new object gets its name only when it has been set up, in one step: nobody ever maps one that is
/// being made, or was being made by a process that died. Of processes that start at the same time one
/// makes the object and the others join it.
///
/// An object belongs to one thread at a time. Nothing throws.
class PLATFORM_API SharedMemory {
public:
    /// Fills new memory. False gives it up.
    using SetUp = bool (*)(void* memory);

    /// What came of joining memory that others may be using: REFUSED where it is none of theirs, BUSY
    /// where that could not be found out in time.
    enum class Joining { JOINED, REFUSED, BUSY };
    using Join = Joining (*)(void* memory);

    enum class Result { failed, created, joined };

    SharedMemory() noexcept = default;
    ~SharedMemory() { detach(); }

    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    /// Maps the object of this name, or makes one where there is none. What was mapped before is
    /// detached.
    ///
    /// An object is only mapped when it has exactly this size, and belongs to root or to the effective
    /// user; it is only joined when `join` agrees. One that is busy keeps its name, and this process does
    /// without. What else stands under the name loses it to a new object, as far as this process may do
    /// that; where it looks like an object of another user's processes, one line on standard error says
    /// so. One line says so, too, where there is no object for this process.
    ///
    /// @param name   "/" and the name; null and others fail
    /// @param size   in bytes
    /// @param setUp  called with a new object, all zero, that no other process sees
    /// @param join   called with an object that others may be using
    /// @return failed, with nothing mapped, when the system allows neither; that takes a second at
    ///         most where another process stands in the way
    Result attach(const char* name, std::size_t size, SetUp setUp, Join join) noexcept;

    /// Unmaps the memory, if there is any. The object and its name stay.
    void detach() noexcept;

    /// The memory, or null.
    void* data() const noexcept { return m_data; }

    /// Takes the name away, whatever it means by now. Who has the object mapped keeps it. Null is
    /// ignored.
    static void unlink(const char* name) noexcept;

private:
    bool map(int file, std::size_t size) noexcept;
    bool make(int file, std::size_t size, SetUp setUp) noexcept;
    std::optional<Joining> tryJoin(int file, std::size_t size, Join join) noexcept;
    Result giveUp() noexcept;
    int publish(const char* name, std::size_t size, SetUp setUp) noexcept;

    void* m_data = nullptr;
    std::size_t m_size = 0;
};

} // namespace platform
