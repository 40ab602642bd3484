#pragma once

#include "platform/FolderClaim.h"

#include <cstdint>
#include <string_view>

namespace platwifi {

/// The end of a result file's name: the id of the thread that uses it, as a decimal number. Threads
/// of different processes may have the same id, so a thread claims its number while it uses a file.
class ResultTag {
public:
    /// The tag of the calling thread.
    ResultTag() noexcept;

    /// The tag in a file name, without the prefix; invalid unless it is digits only.
    explicit ResultTag(std::string_view digits) noexcept;

    bool isValid() const noexcept { return m_text[0] != '\0'; }
    const char* text() const noexcept { return m_text; }

    /// The number of the claim (platform/FolderClaim.h) of a thread that uses its file, and that of
    /// a process that is about to remove one as a leftover. Two tags may share a number.
    std::uint32_t useClaim() const noexcept;
    std::uint32_t removalClaim() const noexcept;

private:
    char m_text[24] = "";
};

/// A thread's claim on its result file. No process removes the file as a leftover during its
/// lifetime.
class ResultClaim {
public:
    explicit ResultClaim(const ResultTag& tag) noexcept;

private:
    platform::FolderClaim m_claim;
};

} // namespace platwifi
