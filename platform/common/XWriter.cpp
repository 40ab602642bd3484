#include "platform/XWriter.h"

#include "common/Utf8.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr const char* REPLACEMENT = "\xEF\xBF\xBD"; // U+FFFD

// What stands for a one-byte character in an attribute value, or null where it stands for itself.
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
    case '\t': // as they stand, a reader takes these three for blanks
        return "&#9;";
    case '\n':
        return "&#10;";
    case '\r':
        return "&#13;";
    default:
        return character > 0 && character < ' ' ? REPLACEMENT : nullptr;
    }
}

// U+FFFE and U+FFFF are UTF-8, but no characters of XML.
bool isNoCharacter(const char* text) {
    return std::strncmp(text, "\xEF\xBF\xBE", 3) == 0 || std::strncmp(text, "\xEF\xBF\xBF", 3) == 0;
}

// Most of every text needs no second look.
bool isPlain(char character) {
    return character >= ' ' && character < 0x7F && !escapeOf(character);
}

std::size_t plainLength(const char* text) {
    std::size_t length = 0;
    while (isPlain(text[length]))
        ++length;
    return length;
}

// A character that is not plain: how many bytes it has, and what stands for it.
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

// A value as printf() makes it, cut to `size` - 1 bytes. Numbers take no memory of their own.
class Formatted {
public:
    Formatted(const char* format, std::size_t size, va_list arguments) {
        va_list again;
        va_copy(again, arguments);
        const int length = std::vsnprintf(m_few, std::min(size, sizeof m_few), format, arguments);
        if (length < 0)
            m_few[0] = '\0';
        else if (size > sizeof m_few && static_cast<std::size_t>(length) >= sizeof m_few)
            makeLong(std::min(size, static_cast<std::size_t>(length) + 1), format, again);
        va_end(again);
    }

    const char* text() const { return m_many ? m_many.get() : m_few; }

private:
    void makeLong(std::size_t size, const char* format, va_list arguments) {
        m_many = std::make_unique<char[]>(size);
        std::vsnprintf(m_many.get(), size, format, arguments);
    }

    char m_few[64];
    std::unique_ptr<char[]> m_many;
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
