#include "settings/replies/ListRecord.h"

#include "settings/replies/Columns.h"

#include <cstddef>
#include <cstdlib>

namespace platwifi {
namespace {

constexpr std::size_t MOST_DIGITS = 3;
constexpr int LARGEST_ID = 255;

// "" for what is no address.
std::string addressIn(const std::string& column) {
    return column.find(':') != std::string::npos ? column : "";
}

std::optional<unsigned char> idFrom(const std::string& text) {
    if (text.empty() || text.size() > MOST_DIGITS ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return {};
    const int id = std::atoi(text.c_str());
    return id <= LARGEST_ID ? std::optional(static_cast<unsigned char>(id)) : std::nullopt;
}

std::optional<ListRecord> recordOfAllColumns(const std::string& line) {
    const std::optional<ListedSsid> listed = listedSsid(line);
    if (!listed || !listed->id)
        return {};
    const Columns columns = columnsOf(line);
    return ListRecord{*listed->id, listed->printed,
                      columns.size() >= COLUMNS_OF_LIST ? addressIn(columns[2]) : ""};
}

std::optional<ListRecord> recordOfFilledColumns(const std::string& line) {
    const Columns columns = filledColumnsOf(line);
    const bool hasSsid = columns.size() > 1 && !isBssidColumn(columns[1]);
    const std::size_t bssidAt = hasSsid ? 2 : 1;
    if (columns.size() <= bssidAt)
        return {};
    return ListRecord{static_cast<unsigned char>(decimalOf(columns[0].c_str())),
                      hasSsid ? columns[1] : "", // quirk: LOAD-8
                      addressIn(columns[bssidAt])};
}

} // namespace

// With all four columns the second is the SSID, whatever it looks like. With fewer, an SSID that can be a
// BSSID counts as none.
std::optional<ListedSsid> listedSsid(const std::string& line) {
    const Columns columns = columnsOf(line);
    if (columns.size() < 2)
        return {};
    const bool isSsid = columns.size() >= COLUMNS_OF_LIST || !isBssidColumn(columns[1]);
    return ListedSsid{idFrom(columns[0]), isSsid ? columns[1] : ""};
}

std::optional<ListRecord> listRecord(const std::string& line, bool emptyColumnsCount) {
    return emptyColumnsCount ? recordOfAllColumns(line) : recordOfFilledColumns(line);
}

} // namespace platwifi
