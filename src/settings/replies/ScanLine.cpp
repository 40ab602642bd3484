#include "settings/replies/ScanLine.h"

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/Radio.h"
#include "model/WifiNetwork.h"
#include "settings/replies/Columns.h"
#include "settings/replies/PrintedSsid.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <utility>

namespace platwifi {
namespace {

struct Channel {
    int megahertz;
    unsigned int number;
};

// clang-format off
constexpr Channel CHANNELS[] = {
    {2412, 1},
    {2417, 2},
    {2422, 3},
    {2427, 4},
    {2432, 5},
    {2437, 6},
    {2442, 7},
    {2447, 8},
    {2452, 9},
    {2457, 10},
    {2462, 11},
};
// clang-format on
constexpr unsigned int OTHER_CHANNEL = 6;

constexpr unsigned int WEAKEST_SIGNAL = 160;
constexpr unsigned int SIGNAL_RANGE = 50;

// One function for each column of a scan line, in their order: it sets what the column stands for.
using ReadColumn = void (*)(WifiNetwork&, const char* column);

constexpr ReadColumn SCAN_COLUMNS[] = {
    [](WifiNetwork& network, const char* bssid) {
        if (std::strchr(bssid, ':'))
            network.setBssid(bssid);
    },
    [](WifiNetwork& network, const char* frequency) { network.setChannel(channelAt(frequency)); },
    [](WifiNetwork& network, const char* signal) { network.setStrength(strengthOf(signal)); },
    [](WifiNetwork& network, const char* flags) {
        const bool adHoc = std::strstr(flags, "[IBSS]");
        network.setNetworkMode(adHoc ? NETWORK_MODE_ADHOC : NETWORK_MODE_MANAGED);
    },
};

enum ScanColumn : std::size_t { BSSID, FREQUENCY, SIGNAL, FLAGS, SSID, COLUMN_COUNT };

int signalOf(const Columns& columns) {
    return decimalOf(columns[SIGNAL].c_str());
}

// A refresh must not make a save necessary.
void setSeen(WifiNetwork& network, Field field, unsigned int value) {
    NetworkFields& fields = NetworkFields::of(network);
    fields.setNumber(field, value);
    if (!rule::REFRESH_IS_EDIT())
        fields.setDirty(field, false);
}

void setStrongest(WifiNetwork& network, const std::vector<Columns>& found) {
    const Columns* strongest = nullptr;
    for (const Columns& columns : found) {
        const bool isIt = columns[SSID] == network.getSsid();
        if (isIt && (!strongest || signalOf(columns) > signalOf(*strongest)))
            strongest = &columns;
    }
    if (!strongest)
        return;
    setSeen(network, Field::CHANNEL, channelAt((*strongest)[FREQUENCY].c_str()));
    setSeen(network, Field::STRENGTH, strengthOf((*strongest)[SIGNAL].c_str()));
}

void mergeBySsid(const Lines& lines, WifiNetwork* head) {
    std::vector<Columns> found;
    for (const std::string& line : lines) {
        Columns columns = columnsOf(line);
        if (columns.size() != COLUMN_COUNT || columns[SSID].empty())
            continue;
        columns[SSID] = ssidInMemory(columns[SSID]); // once, not for each network
        found.push_back(std::move(columns));
    }
    for (WifiNetwork* network = head; network; network = network->getNext()) {
        if (network->getSsid())
            setStrongest(*network, found);
    }
}

void mergeLine(const char* line, WifiNetwork* head, ScanMatch matches) {
    for (WifiNetwork* network = head; network; network = network->getNext()) {
        if (network->getSsid() && matches(line, network->getSsid()))
            readScanLine(line, *network);
    }
}

} // namespace

unsigned int channelAt(const char* frequency) {
    const int megahertz = decimalOf(frequency);
    if (rule::ALL_CHANNELS_ARE_KNOWN())
        return static_cast<unsigned int>(channelInBands(megahertz));
    for (const Channel& channel : CHANNELS) {
        if (channel.megahertz == megahertz)
            return channel.number;
    }
    return OTHER_CHANNEL; // quirk: LOAD-19
}

// Unsigned on purpose: a signal below 160 wraps around and gives 100. quirk: LOAD-20
unsigned int strengthOf(const char* signal) {
    if (rule::SIGNAL_IS_IN_DBM())
        return static_cast<unsigned int>(percentOf(decimalOf(signal)));
    const unsigned int above = static_cast<unsigned int>(decimalOf(signal)) - WEAKEST_SIGNAL;
    const double share = static_cast<double>(std::min(above, SIGNAL_RANGE)) / SIGNAL_RANGE;
    return static_cast<unsigned int>(share * 100);
}

void readScanLine(const char* line, WifiNetwork& network) {
    const Columns columns = filledColumnsOf(line);
    const std::size_t count = std::min(columns.size(), std::size(SCAN_COLUMNS));
    for (std::size_t i = 0; i < count; ++i)
        SCAN_COLUMNS[i](network, columns[i].c_str());
}

bool isWholeLine(const char* line, const char* ssid) {
    return std::strcmp(line, ssid) == 0;
}

// quirk: STATUS-4
bool isInLine(const char* line, const char* ssid) {
    return std::strstr(line, ssid) != nullptr;
}

void mergeScan(const Lines& lines, WifiNetwork* head, ScanMatch matches) {
    if (rule::SCAN_MATCHES_BY_SSID())
        return mergeBySsid(lines, head);
    for (const std::string& line : lines)
        mergeLine(line.c_str(), head, matches);
}

} // namespace platwifi
