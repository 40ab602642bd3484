#include "platform/XWriter.h"

#include "common/Utf8.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr const char* REPLACEMENT = "\xEF\xBF\xBD"; // U+FFFD

// The replacement of a one-byte character in an attribute value, or null when it needs none.
const char* escapeOf(char character) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&apos;";
    case '\t': // a reader turns these three into blanks unless they are references
        return "&#9;";
    case '\n':
        return "&#10;";
    case '\r':
        return "&#13;";
    default:
        return character > 0 && character < ' ' ? REPLACEMENT : nullptr;
    }
}

// U+FFFE and U+FFFF are valid UTF-8 but not allowed in XML.
bool isNoCharacter(const char* text) {
    return std::strncmp(text, "\xEF\xBF\xBE", 3) == 0 || std::strncmp(text, "\xEF\xBF\xBF", 3) == 0;
}

// A character that is written unchanged. Most are, so they are tested first.
bool isPlain(char character) {
    return character >= ' ' && character < 0x7F && !escapeOf(character);
}

std::size_t plainLength(const char* text) {
    std::size_t length = 0;
    while (isPlain(text[length]))
        ++length;
    return length;
}

// A character that is not plain: its length in bytes, and its replacement.
struct Special {
    std::size_t length;
    const char* text;
    std::size_t textLength;
};

Special specialAt(const char* text) {
    const std::size_t length = platform::utf8CharacterLength(text);
    const char* const escape = length == 1 ? escapeOf(*text) : nullptr;
    if (escape)
        return {1, escape, std::strlen(escape)};
    if (length == 0 || isNoCharacter(text))
        return {length == 0 ? 1 : length, REPLACEMENT, std::strlen(REPLACEMENT)};
    return {length, text, length};
}

// A value formatted as by printf(), cut to `size` - 1 bytes. Short values, such as numbers, are not
// allocated.
class Formatted {
public:
    Formatted(const char* format, std::size_t size, va_list arguments) {
        va_list again;
        va_copy(again, arguments);
        const int length =
            std::vsnprintf(m_short, std::min(size, sizeof m_short), format, arguments);
        if (length < 0)
            m_short[0] = '\0';
        else if (size > sizeof m_short && static_cast<std::size_t>(length) >= sizeof m_short)
            makeLong(std::min(size, static_cast<std::size_t>(length) + 1), format, again);
        va_end(again);
    }

    const char* text() const { return m_long ? m_long.get() : m_short; }

private:
    void makeLong(std::size_t size, const char* format, va_list arguments) {
        m_long = std::make_unique<char[]>(size);
        std::vsnprintf(m_long.get(), size, format, arguments);
    }

    char m_short[64];
    std::unique_ptr<char[]> m_long;
};

} // namespace

XWriter::~XWriter() = default;

void XWriter::w(const char* text) {
    if (text)
        write(text, std::strlen(text));
}

void XWriter::w(char character) {
    if (character != '\0')
        write(&character, 1);
}

void XWriter::attr(const char* name, const char* value) {
    if (!name || !*name)
        return;
    w(name);
    write("=\"", 2);
    if (value)
        writeEscaped(value);
    write("\"", 1);
}

void XWriter::writeEscaped(const char* text) {
    while (*text) {
        const std::size_t plain = plainLength(text);
        if (plain > 0)
            write(text, plain);
        text += plain;
        if (!*text)
            return;
        const Special special = specialAt(text);
        write(special.text, special.textLength);
        text += special.length;
    }
}

void XWriter::attrf(const char* name, const char* format, int size, ...) {
    if (!format || size <= 1) {
        attr(name, "");
        return;
    }
    va_list arguments;
    va_start(arguments, size);
    const Formatted value(format, static_cast<std::size_t>(size), arguments);
    va_end(arguments);
    attr(name, value.text());
}
