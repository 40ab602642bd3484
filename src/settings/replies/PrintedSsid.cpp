#include "settings/replies/PrintedSsid.h"

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

} // namespace

std::string printedSsid(const std::string& ssid) {
    std::string printed;
    for (const char byte : ssid)
        printed += printedByte(static_cast<unsigned char>(byte));
    return printed;
}

} // namespace platwifi
