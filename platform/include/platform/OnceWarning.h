#pragma once

#include "platform/Export.h"

#include <atomic>
#include <string>

namespace platform {

/// A line on standard error that a process prints at most once, however often its cause occurs. For
/// objects in static storage. Any thread may call; nothing throws.
class PLATFORM_API OnceWarning {
public:
    constexpr OnceWarning() noexcept = default;

    OnceWarning(const OnceWarning&) = delete;
    OnceWarning& operator=(const OnceWarning&) = delete;

    /// Prints "platwifi: " and the text as one line at the first call, and nothing at later ones.
    /// @param text  names the cause and what to do, without a secret
    void print(const std::string& text) noexcept;

private:
    std::atomic<bool> m_printed{false};
};

} // namespace platform
