#include "platform/XWriter.h"

#include "Utf8.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

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

std::string escaped(const char* value) {
    std::string out;
    while (*value) {
        const std::size_t length = platform::utf8CharacterLength(value);
        const char* escape = length == 1 ? escapeOf(*value) : nullptr;
        if (escape)
            out += escape;
        else if (length == 0 || isNoCharacter(value))
            out += REPLACEMENT;
        else
            out.append(value, length);
        value += length == 0 ? 1 : length;
    }
    return out;
}

std::string formatted(const char* format, std::size_t size, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0)
        return "";
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::vsnprintf(text.data(), text.size(), format, arguments);
    text.resize(std::min(static_cast<std::size_t>(length), size - 1));
    return text;
}

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
    const std::string attribute = std::string(name) + "=\"" + escaped(value ? value : "") + '"';
    write(attribute.data(), attribute.size());
}

void XWriter::attrf(const char* name, const char* format, int size, ...) {
    if (!format || size <= 1) {
        attr(name, "");
        return;
    }
    va_list arguments;
    va_start(arguments, size);
    const std::string value = formatted(format, static_cast<std::size_t>(size), arguments);
    va_end(arguments);
    attr(name, value.c_str());
}
