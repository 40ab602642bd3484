#pragma once

#include "platform/Export.h"

#include <atomic>
#include <string>

namespace platform {

/// A line on standard error that a process prints once, however often its cause comes back. Meant for
/// static storage. Any thread may call; nothing throws.
class PLATFORM_API OnceWarning {
public:
    constexpr OnceWarning() noexcept = default;

    OnceWarning(const OnceWarning&) = delete;
    OnceWarning& operator=(const OnceWarning&) = delete;

    /// Prints "platwifi: " and the text as one line, the first time; nothing later.
    /// @param text  names the cause and the next step, without a secret
    void print(const std::string& text) noexcept;

private:
    std::atomic<bool> m_printed{false};
};

} // namespace platform
