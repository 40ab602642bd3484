#pragma once

#include <cstdint>

/// The runtime, with the service's clock: one per process, never destroyed.
class __attribute__((visibility("default"))) Zam {
public:
    /// The runtime; never null. May be called from any thread.
    static Zam* getInstance() noexcept;

    /// The time of a monotonic clock in milliseconds. Its zero is arbitrary: only differences have
    /// a meaning.
    std::uint64_t milliseconds() const noexcept;

private:
    Zam() = default;
};
