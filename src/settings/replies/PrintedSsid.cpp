#include "settings/replies/PrintedSsid.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace platwifi {
namespace {

const char* namedEscape(unsigned char byte) {
    switch (byte) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\033':
        return "\\e";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return nullptr;
    }
}

std::string printedByte(unsigned char byte) {
    if (const char* const escape = namedEscape(byte))
        return escape;
    if (byte >= 0x20 && byte < 0x7f)
        return {static_cast<char>(byte)};
    const char* const digits = "0123456789abcdef";
    return {'\\', 'x', digits[byte >> 4], digits[byte & 0xf]};
}

constexpr std::size_t HEX_ESCAPE = 4; // \xHH

bool isHexEscape(const std::string& text, std::size_t at) {
    constexpr const char* DIGITS = "0123456789abcdefABCDEF";
    return at + HEX_ESCAPE <= text.size() && text[at + 1] == 'x' &&
           std::strspn(text.c_str() + at + 2, DIGITS) >= 2;
}

// The byte of an escape of one letter; 0 for none.
char escapedByte(char letter) {
    constexpr const char* LETTERS = "\"\\enrt";
    constexpr const char* BYTES = "\"\\\033\n\r\t";
    const char* const found = letter != '\0' ? std::strchr(LETTERS, letter) : nullptr;
    return found ? BYTES[found - LETTERS] : '\0';
}

} // namespace

std::string bytesOfPrinted(const std::string& printed) {
    std::string bytes;
    for (std::size_t i = 0; i < printed.size();) {
        const char escaped =
            printed[i] == '\\' && i + 1 < printed.size() ? escapedByte(printed[i + 1]) : '\0';
        if (printed[i] == '\\' && isHexEscape(printed, i)) {
            const std::string digits = printed.substr(i + 2, 2);
            bytes += static_cast<char>(std::strtol(digits.c_str(), nullptr, 16));
            i += HEX_ESCAPE;
        } else if (escaped != '\0') {
            bytes += escaped;
            i += 2;
        } else {
            bytes += printed[i++];
        }
    }
    return bytes;
}

std::string printedSsid(const std::string& ssid) {
    std::string printed;
    for (const char byte : ssid)
        printed += printedByte(static_cast<unsigned char>(byte));
    return printed;
}

} // namespace platwifi
