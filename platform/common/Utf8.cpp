#include "common/Utf8.h"

namespace platform {
namespace {

// The well-formed sequences by their first byte: the length and the range of the second byte. Every
// later byte is 80..BF. The range of the second byte excludes overlong forms, surrogates and values
// above U+10FFFF.
struct Form {
    unsigned char first;
    unsigned char last;
    unsigned char length;
    unsigned char secondFirst;
    unsigned char secondLast;
};

constexpr Form FORMS[] = {
    {0x01, 0x7F, 1, 0x00, 0x00}, //
    {0xC2, 0xDF, 2, 0x80, 0xBF}, //
    {0xE0, 0xE0, 3, 0xA0, 0xBF}, //
    {0xE1, 0xEC, 3, 0x80, 0xBF}, //
    {0xED, 0xED, 3, 0x80, 0x9F}, //
    {0xEE, 0xEF, 3, 0x80, 0xBF}, //
    {0xF0, 0xF0, 4, 0x90, 0xBF}, //
    {0xF1, 0xF3, 4, 0x80, 0xBF}, //
    {0xF4, 0xF4, 4, 0x80, 0x8F}, //
};

bool isBetween(char byte, unsigned char first, unsigned char last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

// Does not read past the NUL, which is in none of the ranges.
bool hasTail(const char* text, const Form& form) {
    if (form.length > 1 && !isBetween(text[1], form.secondFirst, form.secondLast))
        return false;
    for (std::size_t i = 2; i < form.length; ++i) {
        if (!isBetween(text[i], 0x80, 0xBF))
            return false;
    }
    return true;
}

} // namespace

std::size_t utf8CharacterLength(const char* text) noexcept {
    for (const Form& form : FORMS) {
        if (isBetween(text[0], form.first, form.last))
            return hasTail(text, form) ? form.length : 0;
    }
    return 0;
}

} // namespace platform
