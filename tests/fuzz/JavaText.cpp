// The conversion of text between C and Java in both directions.

#include "Input.h"
#include "Require.h"

#include "platform/JavaText.h"
#include "support/ModifiedUtf8.h"

#include <optional>
#include <vector>

using fuzz::Input;

namespace {

using Units = std::vector<std::uint16_t>; // UTF-16, as a Java program sees it

std::uint32_t unsignedByte(const std::string& text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

struct Character {
    std::uint32_t code;
    std::size_t length;
};

// The UTF-8 character at `at`, computed from its code point: it has the shortest form, is no surrogate and is
// at most U+10FFFF.
std::optional<Character> characterAt(const std::string& text, std::size_t at) {
    constexpr std::uint32_t LOWEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const std::uint32_t first = unsignedByte(text, at);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 1)
        return Character{first, 1};
    if (first < 0xC0 || first >= 0xF8)
        return std::nullopt;
    std::uint32_t code = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((unsignedByte(text, at + i) & 0xC0U) != 0x80U)
            return std::nullopt;
        code = code << 6U | (unsignedByte(text, at + i) & 0x3FU);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < LOWEST[length] || isSurrogate || code > 0x10FFFF)
        return std::nullopt;
    return Character{code, length};
}

void append(Units& units, std::uint32_t code) {
    if (code < 0x10000) {
        units.push_back(static_cast<std::uint16_t>(code));
        return;
    }
    units.push_back(static_cast<std::uint16_t>(0xD800U + ((code - 0x10000U) >> 10U)));
    units.push_back(static_cast<std::uint16_t>(0xDC00U + ((code - 0x10000U) & 0x3FFU)));
}

// The text that Java must get: characters, and a lone low surrogate for each byte that is part of none.
Units unitsOfBytes(const std::string& bytes) {
    Units units;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto character = characterAt(bytes, at);
        append(units, character ? character->code : 0xDC00U + unsignedByte(bytes, at));
        at += character ? character->length : 1;
    }
    return units;
}

// Decodes modified UTF-8 as a virtual machine does.
Units unitsOfModified(const std::string& text) {
    Units units;
    for (std::size_t at = 0; at < text.size();) {
        const std::uint32_t first = unsignedByte(text, at);
        const std::uint32_t second = unsignedByte(text, at + 1) & 0x3FU;
        const std::uint32_t third = unsignedByte(text, at + 2) & 0x3FU;
        const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : 3;
        const std::uint32_t unit = length == 1   ? first
                                   : length == 2 ? (first & 0x1FU) << 6U | second
                                                 : (first & 0xFU) << 12U | second << 6U | third;
        units.push_back(static_cast<std::uint16_t>(unit));
        at += length;
    }
    return units;
}

void outAndBack(Input& input) {
    const std::string bytes = input.text();
    const std::string java = platform::toModifiedUtf8(bytes.c_str());
    REQUIRE(test::isModifiedUtf8(java));
    REQUIRE(unitsOfModified(java) == unitsOfBytes(bytes));
    REQUIRE(platform::fromModifiedUtf8(java.c_str()) == bytes);
}

std::string modifiedOf(std::uint16_t unit) {
    const auto byte = [](unsigned int value) {
        return static_cast<char>(static_cast<unsigned char>(value));
    };
    if (unit != 0 && unit < 0x80)
        return {byte(unit)};
    if (unit < 0x800)
        return {byte(0xC0U | unit >> 6U), byte(0x80U | (unit & 0x3FU))};
    return {byte(0xE0U | unit >> 12U), byte(0x80U | (unit >> 6U & 0x3FU)),
            byte(0x80U | (unit & 0x3FU))};
}

// Any Java text, with lone surrogates and U+0000, can be converted; after that it converts to Java and back
// unchanged.
void inAndBack(Input& input) {
    std::string java;
    while (!input.isEmpty()) {
        const unsigned int high = input.byte();
        java += modifiedOf(static_cast<std::uint16_t>(high << 8U | input.byte()));
    }
    REQUIRE(test::isModifiedUtf8(java));
    const std::string bytes = platform::fromModifiedUtf8(java.c_str());
    REQUIRE(bytes.find('\0') == std::string::npos);
    const std::string again = platform::toModifiedUtf8(bytes.c_str());
    REQUIRE(test::isModifiedUtf8(again));
    REQUIRE(platform::fromModifiedUtf8(again.c_str()) == bytes);
}

// Bytes that no virtual machine would pass must not crash the library either.
void anyBytesIn(Input& input) {
    const std::string text = input.text();
    const std::string bytes = platform::fromModifiedUtf8(text.c_str());
    REQUIRE(bytes.size() <= text.size());
}

constexpr void (*WAYS[])(Input&) = {outAndBack, inAndBack, anyBytesIn};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    WAYS[input.below(sizeof(WAYS) / sizeof(WAYS[0]))](input);
    return 0;
}
