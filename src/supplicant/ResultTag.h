#pragma once

#include "platform/FolderClaim.h"

#include <cstdint>
#include <string_view>

namespace platwifi {

/// Where result files stand.
constexpr const char* RESULT_FOLDER = "/tmp";

/// What tells the result files of one thread from those of others: a decimal number at the end of the
/// name. It belongs to no process in particular, so a thread claims its number while it uses a file.
class ResultTag {
public:
    /// The calling thread's.
    ResultTag() noexcept;

    /// That of a file name behind its prefix; not valid unless it is digits only.
    explicit ResultTag(std::string_view digits) noexcept;

    bool isValid() const noexcept { return m_text[0] != '\0'; }
    const char* text() const noexcept { return m_text; }

    /// The claims (platform/FolderClaim.h) that say that a thread uses its file, and that a process is
    /// about to remove one as a leftover. Two tags may share a number.
    std::uint32_t useClaim() const noexcept;
    std::uint32_t removalClaim() const noexcept;

private:
    char m_text[24] = "";
};

/// A thread's claim on its result file: none is removed as a leftover as long as this object lives.
class ResultClaim {
public:
    explicit ResultClaim(const ResultTag& tag) noexcept;

private:
    platform::FolderClaim m_claim;
};

} // namespace platwifi
