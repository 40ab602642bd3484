#include "model/OwnedText.h"

#include "TextCopy.h"

#include <cstring>

namespace platwifi {
namespace {

// Null and "" count as the same.
bool sameText(const char* left, const char* right) {
    return std::strcmp(left ? left : "", right ? right : "") == 0;
}

} // namespace

bool OwnedText::assign(const char* value) noexcept {
    if (sameText(m_text.get(), value))
        return false;
    m_text.reset(value ? copyOf(value) : nullptr); // copied before the old text is freed
    return true;
}

} // namespace platwifi
