#include "supplicant/ResultTag.h"

#include "Paths.h"
#include "platform/PlatformUtil.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <pthread.h>

namespace platwifi {
namespace {

// Each tag has two claims. A prime, because thread ids are addresses with low bits in common.
constexpr std::uint32_t TAGS = 1073741789;
static_assert(2 * (TAGS - 1) + 1 <= platform::FolderClaim::MAX_NUMBER, "every claim has a number");

constexpr int REMOVAL_LOOKS = 500;
constexpr int REMOVAL_PAUSE_MS = 1;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::uint32_t pairOf(const char* tag) {
    return static_cast<std::uint32_t>(std::strtoull(tag, nullptr, 10) % TAGS) * 2;
}

} // namespace

ResultTag::ResultTag() noexcept {
    const auto id = static_cast<long long>(pthread_self());
    if (std::snprintf(m_text, sizeof(m_text), "%lld", id) <= 0)
        m_text[0] = '\0';
}

ResultTag::ResultTag(std::string_view digits) noexcept {
    if (digits.size() < sizeof(m_text) && std::all_of(digits.begin(), digits.end(), isDigit))
        digits.copy(m_text, sizeof(m_text) - 1);
}

std::uint32_t ResultTag::useClaim() const noexcept {
    return pairOf(m_text);
}

std::uint32_t ResultTag::removalClaim() const noexcept {
    return pairOf(m_text) + 1;
}

// The user of a file and its remover each claim first and look second, so that at least one of them
// sees the other. A removal takes microseconds. A claim that lasts longer belongs to a stopped
// process, or was made by another user to block this one: the wait is limited.
ResultClaim::ResultClaim(const ResultTag& tag) noexcept
    : m_claim(paths::RESULT_FOLDER, tag.useClaim()) {
    for (int look = 0; look < REMOVAL_LOOKS && m_claim.sees(tag.removalClaim()); ++look)
        PlatformUtil::sleep(REMOVAL_PAUSE_MS);
}

} // namespace platwifi
