#include "model/OwnedText.h"

#include <cstring>

namespace platwifi {
namespace {

// Null and "" count as the same.
bool sameText(const char* left, const char* right) {
    return std::strcmp(left ? left : "", right ? right : "") == 0;
}

std::unique_ptr<char[]> copyOf(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    std::unique_ptr<char[]> copy(new char[size]);
    std::memcpy(copy.get(), text, size);
    return copy;
}

} // namespace

bool OwnedText::assign(const char* value) noexcept {
    if (sameText(m_text.get(), value))
        return false;
    m_text = value ? copyOf(value) : nullptr; // copied before the old text goes
    return true;
}

} // namespace platwifi
