#include "host/Ssid.h"

#include "display/Text.h"
#include "values/Failure.h"

#include <algorithm>
#include <cctype>

namespace cli {
namespace {

constexpr std::size_t MAX_BYTES = 32;

struct Escape {
    char letter;
    char byte;
};

constexpr Escape ESCAPES[] = {
    {'\\', '\\'}, {'"', '"'}, {'e', '\033'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
};

struct Piece {
    char byte;
    std::size_t length; // in the notation
};

bool isHexEscape(const std::string& text, std::size_t place) {
    return text.size() - place >= 4 && text[place + 1] == 'x' &&
           std::isxdigit(static_cast<unsigned char>(text[place + 2])) != 0 &&
           std::isxdigit(static_cast<unsigned char>(text[place + 3])) != 0;
}

Piece pieceAt(const std::string& text, std::size_t place) {
    if (text[place] != '\\' || place + 1 == text.size())
        return {text[place], 1};
    if (isHexEscape(text, place))
        return {static_cast<char>(std::stoi(text.substr(place + 2, 2), nullptr, 16)), 4};
    for (const Escape& escape : ESCAPES) {
        if (escape.letter == text[place + 1])
            return {escape.byte, 2};
    }
    return {'\\', 1};
}

bool isHidden(const std::string& bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == '\0'; });
}

} // namespace

std::string bytesOfSsid(const std::string& notation) {
    std::string bytes;
    for (std::size_t place = 0; place < notation.size();) {
        const Piece piece = pieceAt(notation, place);
        bytes += piece.byte;
        place += piece.length;
    }
    return bytes;
}

std::string shownSsid(const std::string& notation) {
    const std::string bytes = bytesOfSsid(notation);
    return isHidden(bytes) ? "(hidden)" : printable(bytes);
}

std::string plainSsid(const std::string& notation) {
    const std::string bytes = bytesOfSsid(notation);
    return isUtf8(bytes) ? bytes : notation;
}

bool isSameSsid(const std::string& one, const std::string& other) {
    const std::string bytes = bytesOfSsid(one);
    const std::string otherBytes = bytesOfSsid(other);
    return one == other || bytes == otherBytes || bytes == other || one == otherBytes;
}

void requireSsid(const std::string& ssid) {
    const std::size_t size = std::min(ssid.size(), bytesOfSsid(ssid).size());
    if (size > 0 && size <= MAX_BYTES)
        return;
    throw WrongUse("an SSID has 1 to " + std::to_string(MAX_BYTES) + " bytes, and this one has " +
                   std::to_string(size) + "; platwifi networks and platwifi scan list some");
}

} // namespace cli
