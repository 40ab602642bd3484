#include "platform/JavaText.h"

#include "common/Utf8.h"

#include <cstdint>

namespace platform {
namespace {

constexpr std::uint32_t HIGH_SURROGATES = 0xD800;
constexpr std::uint32_t LOW_SURROGATES = 0xDC00;
constexpr std::uint32_t SUPPLEMENT = 0x10000;

std::uint32_t byteAt(const char* text, int index) {
    return static_cast<unsigned char>(text[index]);
}

char toByte(std::uint32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

// The low six bits of byte `index` of a sequence, shifted to their place in the character.
std::uint32_t tail(const char* text, int index, int shift) {
    return (byteAt(text, index) & 0x3FU) << shift;
}

char tailByte(std::uint32_t character, int shift) {
    return toByte(0x80U | ((character >> shift) & 0x3FU));
}

void appendThreeBytes(std::string& out, std::uint32_t unit) {
    out += {toByte(0xE0U | (unit >> 12)), tailByte(unit, 6), tailByte(unit, 0)};
}

char* putFourBytes(char* out, std::uint32_t character) {
    *out++ = toByte(0xF0U | (character >> 18));
    *out++ = tailByte(character, 12);
    *out++ = tailByte(character, 6);
    *out++ = tailByte(character, 0);
    return out;
}

void appendPair(std::string& out, const char* text) {
    const std::uint32_t character =
        ((byteAt(text, 0) & 0x07U) << 18) | tail(text, 1, 12) | tail(text, 2, 6) | tail(text, 3, 0);
    appendThreeBytes(out, HIGH_SURROGATES + ((character - SUPPLEMENT) >> 10));
    appendThreeBytes(out, LOW_SURROGATES + ((character - SUPPLEMENT) & 0x3FFU));
}

// The surrogate at the start of `text`, or 0.
std::uint32_t surrogateAt(const char* text) {
    const bool is = byteAt(text, 0) == 0xED && byteAt(text, 1) >= 0xA0 && byteAt(text, 1) <= 0xBF &&
                    byteAt(text, 2) >= 0x80 && byteAt(text, 2) <= 0xBF;
    return is ? 0xD000U | tail(text, 1, 6) | tail(text, 2, 0) : 0;
}

bool isHigh(std::uint32_t surrogate) {
    return surrogate >= HIGH_SURROGATES && surrogate < LOW_SURROGATES;
}

bool isLow(std::uint32_t surrogate) {
    return surrogate >= LOW_SURROGATES;
}

bool holdsByte(std::uint32_t surrogate) {
    return surrogate >= LOW_SURROGATES + 0x80 && surrogate <= LOW_SURROGATES + 0xFF;
}

// Replaces the surrogate at `text` by what it stands for, which is shorter and is put at `out`.
void putSurrogate(char*& out, const char*& text, std::uint32_t surrogate) {
    const std::uint32_t next = surrogateAt(text + 3);
    if (isHigh(surrogate) && isLow(next)) {
        out = putFourBytes(out, SUPPLEMENT + ((surrogate - HIGH_SURROGATES) << 10) + next -
                                    LOW_SURROGATES);
        text += 6;
    } else {
        *out++ = holdsByte(surrogate) ? toByte(surrogate) : '?';
        text += 3;
    }
}

bool isAscii(const char* text) {
    while (byteAt(text, 0) - 1 < 0x7FU) // neither the NUL nor a byte of a longer character
        ++text;
    return *text == '\0';
}

} // namespace

std::string toModifiedUtf8(const char* text) {
    std::string out;
    while (text && *text) {
        const std::size_t length = utf8CharacterLength(text);
        if (length == 0)
            appendThreeBytes(out, LOW_SURROGATES + byteAt(text, 0));
        else if (length == 4)
            appendPair(out, text);
        else
            out.append(text, length);
        text += length == 0 ? 1 : length;
    }
    return out;
}

// Only surrogates differ between the two forms. U+0000 stays C0 80, so that it does not end the
// text.
char* restoreUtf8(char* text) {
    while (*text && !surrogateAt(text))
        ++text;
    char* out = text;
    for (const char* in = text; *in;) {
        if (const std::uint32_t surrogate = surrogateAt(in))
            putSurrogate(out, in, surrogate);
        else
            *out++ = *in++;
    }
    *out = '\0';
    return out;
}

std::string fromModifiedUtf8(const char* text) {
    std::string utf8(text ? text : "");
    utf8.resize(static_cast<std::size_t>(restoreUtf8(utf8.data()) - utf8.data()));
    return utf8;
}

jstring newJavaString(JNIEnv* environment, const char* text) {
    if (!environment || !text || environment->ExceptionCheck())
        return nullptr;
    return newJavaStringUnchecked(environment, text);
}

jstring newJavaStringUnchecked(JNIEnv* environment, const char* text) {
    if (isAscii(text))
        return environment->NewStringUTF(text);
    return environment->NewStringUTF(toModifiedUtf8(text).c_str());
}

} // namespace platform
