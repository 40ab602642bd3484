#pragma once

#include <cstdint>

/// The runtime: one per process, never destroyed.
class __attribute__((visibility("default"))) Zam {
public:
    /// The runtime; never null. May be called from any thread.
    static Zam* getInstance() noexcept;

    /// Milliseconds of a clock that never goes backwards. Its zero is arbitrary: only differences
    /// mean something.
    std::uint64_t milliseconds() const noexcept;

private:
    Zam() = default;
};
