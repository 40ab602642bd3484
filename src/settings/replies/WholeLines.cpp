#include "settings/replies/WholeLines.h"

#include "settings/replies/ListParts.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <cstring>

namespace platwifi {
namespace {

constexpr std::size_t FULL_PIECE = 127;
constexpr unsigned char MOST_PIECES = 255;
constexpr const char* DIGITS = "0123456789";
constexpr const char* HEX_DIGITS = "0123456789abcdefABCDEF";
constexpr std::size_t BSSID_LENGTH = 17;

/// Whether `next`, the piece after a full one at the end of `line`, begins a new line.
using BeginsLine = bool (*)(const std::string& line, const std::string& next);

Lines join(const ReplyLines& pieces, BeginsLine beginsLine) {
    Lines lines;
    std::size_t lastPiece = 0;
    for (unsigned int i = 0; i < pieces.count; ++i) {
        const char* const piece = pieces.data()[i];
        if (!piece)
            continue;
        if (lastPiece == FULL_PIECE && !beginsLine(lines.back(), piece))
            lines.back() += piece;
        else
            lines.emplace_back(piece);
        lastPiece = std::strlen(piece);
    }
    return lines;
}

bool beginsWithId(const std::string& text) {
    const std::size_t end = text.find_first_not_of(DIGITS);
    return end != 0 && end != std::string::npos && text[end] == '\t';
}

bool isWholeBssidColumn(const std::string& column) {
    return column == "any" || column.size() == BSSID_LENGTH;
}

// The columns are id, SSID, BSSID and flags. A piece that begins within an SSID or a BSSID may look like a new
// line ("\x9" and "0\tany"); one that begins within the flags never does.
bool hasBssid(const std::string& line) {
    const auto tabs = std::count(line.begin(), line.end(), '\t');
    return tabs > 2 || (tabs == 2 && isWholeBssidColumn(line.substr(line.rfind('\t') + 1)));
}

bool beginsListLine(const std::string& line, const std::string& next) {
    return hasBssid(line) && beginsWithId(next);
}

// No piece of an SSID has this form: the client prints a tab in an SSID as the two characters "\t".
bool beginsScanLine(const std::string& /*line*/, const std::string& next) {
    if (next.size() <= BSSID_LENGTH || next[BSSID_LENGTH] != '\t')
        return false;
    for (std::size_t i = 0; i < BSSID_LENGTH; ++i) {
        const bool fits = i % 3 == 2 ? next[i] == ':' : std::strchr(HEX_DIGITS, next[i]) != nullptr;
        if (!fits)
            return false;
    }
    return true;
}

// What is left of the longest line, "ssid=" and 32 escaped bytes, after a full piece has six characters at
// most. It holds an equals sign only after the two digits of an escape that was cut.
bool beginsStatusLine(const std::string& /*line*/, const std::string& next) {
    const std::string key = next.substr(0, next.find('='));
    return key.size() < next.size() && key.find('\\') == std::string::npos &&
           key.find_first_not_of(HEX_DIGITS) != std::string::npos;
}

using Query = bool (WifiUtil::*)(const char*, char**, unsigned char, unsigned char*);

bool run(WifiUtil& util, Query query, const char* iface, Lines (*whole)(const ReplyLines&),
         Lines& lines) {
    ReplyLines pieces(MOST_PIECES);
    if (!(util.*query)(iface, pieces.data(), pieces.capacity(), &pieces.count))
        return false;
    lines = whole(pieces);
    return true;
}

void limit(Lines& lines, std::size_t count) {
    if (lines.size() > count)
        lines.resize(count);
}

} // namespace

Lines wholeListLines(const ReplyLines& pieces) {
    return join(pieces, beginsListLine);
}

Lines wholeScanLines(const ReplyLines& pieces) {
    return join(pieces, beginsScanLine);
}

Lines wholeStatusLines(const ReplyLines& pieces) {
    return join(pieces, beginsStatusLine);
}

bool queryListPart(WifiUtil& util, const char* iface, const char* id, Lines& part) {
    if (!id)
        return run(util, &WifiUtil::getNetworkDatabaseSsids, iface, wholeListLines, part);
    ReplyLines pieces(MOST_PIECES);
    if (!util.getNetworksAfter(iface, id, pieces.data(), pieces.capacity(), &pieces.count))
        return false;
    part = wholeListLines(pieces);
    return true;
}

bool queryList(WifiUtil& util, const char* iface, Lines& lines) {
    return readList(
        [&](const char* id, Lines& part) { return queryListPart(util, iface, id, part); }, lines);
}

bool queryScan(WifiUtil& util, const char* iface, Lines& lines) {
    constexpr std::size_t MOST_LINES = 32;
    return queryScan(util, iface, lines, MOST_LINES);
}

bool queryScan(WifiUtil& util, const char* iface, Lines& lines, std::size_t most) {
    if (!run(util, &WifiUtil::discoverNetworks, iface, wholeScanLines, lines))
        return false;
    limit(lines, most);
    return true;
}

bool queryStatus(WifiUtil& util, const char* iface, Lines& lines) {
    if (!run(util, &WifiUtil::getCurrentNetworkStatus, iface, wholeStatusLines, lines))
        return false;
    limit(lines, STATUS_LINES);
    return true;
}

} // namespace platwifi
