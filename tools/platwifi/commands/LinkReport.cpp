#include "commands/LinkReport.h"

#include "display/SignalBars.h"
#include "display/Text.h"
#include "host/ScanResult.h"
#include "host/Ssid.h"
#include "model/Radio.h"

namespace cli {
namespace {

using platwifi::percentOf;

struct Unit {
    int seconds;
    const char* name;
};

constexpr Unit UNITS[] = {{86'400, "d"}, {3'600, "h"}, {60, "min"}, {1, "s"}};

std::string channelText(int frequency) {
    const std::string megahertz = std::to_string(frequency) + " MHz";
    const std::string band = bandOf(frequency);
    if (band.empty())
        return "unknown (" + megahertz + ")";
    return std::to_string(channelOf(frequency)) + " (" + band + ", " + megahertz + ")";
}

std::string signalText(int signal, bool hasBlocks) {
    const int percent = percentOf(signal);
    return signalBars(percent, hasBlocks) + " " + std::to_string(percent) + "% (" +
           std::to_string(signal) + " dBm)";
}

std::string cipherText(const Link& link) {
    if (link.pairwiseCipher == link.groupCipher || link.groupCipher.empty())
        return link.pairwiseCipher;
    return link.pairwiseCipher + " (group " + link.groupCipher + ")";
}

void add(Rows& rows, const char* label, const std::string& text) {
    if (!text.empty())
        rows.emplace_back(label, printable(text));
}

template <typename ToText>
void add(Rows& rows, const char* label, const std::optional<int>& number, ToText toText) {
    if (number)
        add(rows, label, toText(*number));
}

Value valueOf(const std::string& text) {
    return text.empty() ? Value() : text;
}

Value valueOf(const std::optional<int>& number) {
    return number ? Value(*number) : Value();
}

Value channelValue(const std::optional<int>& frequency) {
    const int channel = channelOf(frequency.value_or(0));
    return channel == 0 ? Value() : channel;
}

Value percentValue(const std::optional<int>& signal) {
    return signal ? Value(percentOf(*signal)) : Value();
}

} // namespace

std::string durationText(int seconds) {
    std::string text;
    for (const Unit& unit : UNITS) {
        const int count = seconds / unit.seconds;
        seconds %= unit.seconds;
        if (!text.empty())
            return text + (count == 0 ? "" : " " + std::to_string(count) + " " + unit.name);
        if (count > 0)
            text = std::to_string(count) + " " + unit.name;
    }
    return text.empty() ? "0 s" : text;
}

Rows rowsOf(const Link& link, bool hasBlocks) {
    Rows rows;
    add(rows, "Access point", link.bssid);
    add(rows, "Channel", link.frequency, channelText);
    add(rows, "Signal", link.signal, [&](int signal) { return signalText(signal, hasBlocks); });
    add(rows, "Link speed", link.speed,
        [](int speed) { return std::to_string(speed) + " Mbit/s"; });
    add(rows, "Key management", link.keyManagement);
    add(rows, "Ciphers", cipherText(link));
    add(rows, "PMF", link.pmf);
    add(rows, "IPv4 address", link.ipv4);
    add(rows, "IPv6 address", link.ipv6);
    add(rows, "Connected for", link.connectedSeconds, durationText);
    return rows;
}

Value valueOf(const LinkState& state) {
    if (!state.link)
        return {};
    const Link& link = *state.link;
    return Record{{"ssid", state.ssid.empty() ? Value() : plainSsid(state.ssid)},
                  {"bssid", valueOf(link.bssid)},
                  {"frequency", valueOf(link.frequency)},
                  {"channel", channelValue(link.frequency)},
                  {"band", valueOf(bandOf(link.frequency.value_or(0)))},
                  {"signal", valueOf(link.signal)},
                  {"percent", percentValue(link.signal)},
                  {"speed", valueOf(link.speed)},
                  {"key_mgmt", valueOf(link.keyManagement)},
                  {"pairwise", valueOf(link.pairwiseCipher)},
                  {"group", valueOf(link.groupCipher)},
                  {"pmf", valueOf(link.pmf)},
                  {"ipv4", valueOf(link.ipv4)},
                  {"ipv6", valueOf(link.ipv6)},
                  {"connectedSeconds", valueOf(link.connectedSeconds)}};
}

} // namespace cli
