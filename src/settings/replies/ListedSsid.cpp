#include "settings/replies/ListedSsid.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

using namespace platwifi;

namespace {

constexpr std::ptrdiff_t TABS = 3; // id, SSID, BSSID, flags
constexpr std::size_t MOST_DIGITS = 3;
constexpr int LARGEST_ID = 255;

std::optional<unsigned char> idFrom(const std::string& text) {
    if (text.empty() || text.size() > MOST_DIGITS ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return {};
    const int id = std::atoi(text.c_str());
    return id <= LARGEST_ID ? std::optional(static_cast<unsigned char>(id)) : std::nullopt;
}

bool standsForNoSsid(const std::string& column) {
    return column.empty() || column == "any" || column.find(':') != std::string::npos;
}

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

std::string platwifi::printedSsid(const std::string& ssid) {
    std::string printed;
    for (const char byte : ssid)
        printed += printedByte(static_cast<unsigned char>(byte));
    return printed;
}

std::optional<ListedSsid> platwifi::listedSsid(const std::string& line) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string::npos)
        return {};
    const std::string column = line.substr(tab + 1, line.find('\t', tab + 1) - tab - 1);
    // Without a column for it, the SSID's place is taken by the BSSID.
    const bool isSsid =
        !standsForNoSsid(column) || std::count(line.begin(), line.end(), '\t') >= TABS;
    return ListedSsid{idFrom(line.substr(0, tab)), isSsid ? column : ""};
}
