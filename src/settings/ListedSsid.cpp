#include "settings/ListedSsid.h"

#include "settings/Placeholders.h"
#include "supplicant/ReplyLines.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

using namespace platwifi;

namespace {

constexpr std::size_t LONGEST_PIECE = 127;
constexpr std::ptrdiff_t TABS = 3; // number, SSID, BSSID, flags
constexpr int LARGEST_NUMBER = 255;

std::ptrdiff_t tabsIn(const std::string& line) {
    return std::count(line.begin(), line.end(), '\t');
}

// A long line arrives in pieces. One that is cut behind its last tab has lost flags only.
bool goesOn(const std::string& line) {
    return line.size() == LONGEST_PIECE && tabsIn(line) < TABS;
}

std::vector<std::string> wholeLines(const ReplyLines& reply) {
    std::vector<std::string> lines;
    for (int i = 0; i < reply.count; ++i) {
        if (!lines.empty() && goesOn(lines.back()))
            lines.back() += reply.data()[i];
        else
            lines.emplace_back(reply.data()[i]);
    }
    return lines;
}

// -1 for what is no number, or too large.
int numberFrom(const std::string& text) {
    const bool isNumber = !text.empty() && text.size() <= 3 &&
                          text.find_first_not_of("0123456789") == std::string::npos;
    const int number = isNumber ? std::atoi(text.c_str()) : -1;
    return number <= LARGEST_NUMBER ? number : -1;
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

bool ListedSsid::isOf(const std::string& ssid) const {
    return printed == ssid || printed == printedSsid(ssid) || (isUnnamed && ssid == NO_SSID);
}

std::vector<ListedSsid> platwifi::listedSsids(const ReplyLines& reply) {
    std::vector<ListedSsid> listed;
    for (const std::string& line : wholeLines(reply)) {
        const std::size_t tab = line.find('\t');
        const int number = numberFrom(line.substr(0, tab));
        if (tab == std::string::npos || number < 0)
            continue;
        const std::string column = line.substr(tab + 1, line.find('\t', tab + 1) - tab - 1);
        const bool isUnnamed = standsForNoSsid(column);
        // Without a column for it, the SSID's place is taken by the BSSID.
        const bool isSsid = !isUnnamed || tabsIn(line) >= TABS;
        listed.push_back({static_cast<unsigned char>(number), isSsid ? column : "", isUnnamed});
    }
    return listed;
}
