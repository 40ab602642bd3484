#include "host/Link.h"

#include "client/Question.h"
#include "host/Addresses.h"
#include "host/ConnectedTime.h"
#include "model/Vocabulary.h"
#include "settings/replies/PrintedSsid.h"

#include <charconv>
#include <sstream>

namespace cli {
namespace {

// The text behind "KEY=" at the beginning of a line; "" for none.
std::string valueOf(const std::string& key, const std::string& reply) {
    std::istringstream lines(reply);
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, key.size() + 1, key + "=") == 0)
            return line.substr(key.size() + 1);
    }
    return "";
}

struct Range {
    int lowest;
    int highest;
};

// Numbers outside stand for what a driver does not report: it gives 0, or -9999 for a signal.
constexpr Range FREQUENCIES = {1, 100'000};
constexpr Range SIGNALS = {-150, -1};
constexpr Range SPEEDS = {1, 1'000'000};

std::optional<int> numberIn(const std::string& text, const Range& range) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc() && rest == end;
    if (!isNumber || number < range.lowest || number > range.highest)
        return std::nullopt;
    return number;
}

WpaState stateOf(const std::string& word) {
    for (const platwifi::Word& row : platwifi::STATE_WORDS) {
        if (word == row.text)
            return static_cast<WpaState>(row.number);
    }
    return WPA_STATE_UNKNOWN;
}

std::string pmfWord(unsigned int number) {
    return platwifi::textFor(platwifi::PMF_WORDS, number, "");
}

// The supplicant reports it only where it is in use: 2 where the access point requires it, else 1.
std::string pmfOf(const std::string& status) {
    const std::string text = valueOf("pmf", status);
    if (text.empty())
        return valueOf("key_mgmt", status).empty() ? "" : pmfWord(PMF_DISABLED);
    const auto number = numberIn(text, {PMF_OPTIONAL, PMF_REQUIRED});
    return number ? pmfWord(static_cast<unsigned int>(*number)) : "";
}

Link linkOf(const std::string& status, const std::string& signal) {
    Link link;
    link.bssid = valueOf("bssid", status);
    link.frequency = numberIn(valueOf("freq", status), FREQUENCIES);
    link.signal = numberIn(valueOf("RSSI", signal), SIGNALS);
    link.speed = numberIn(valueOf("LINKSPEED", signal), SPEEDS);
    link.keyManagement = valueOf("key_mgmt", status);
    link.pairwiseCipher = valueOf("pairwise_cipher", status);
    link.groupCipher = valueOf("group_cipher", status);
    link.pmf = pmfOf(status);
    link.ipv4 = valueOf("ip_address", status);
    return link;
}

} // namespace

LinkState LinkState::of(const std::string& status, const std::string& signal) {
    LinkState state;
    const std::string word = valueOf("wpa_state", status);
    state.isReported = !word.empty();
    state.state = stateOf(word);
    state.ssid = platwifi::bytesOfPrinted(valueOf("ssid", status));
    if (state.state == WPA_STATE_COMPLETED)
        state.link = linkOf(status, signal);
    return state;
}

LinkState LinkState::briefly(const std::string& iface) {
    return of(askSupplicant(iface, "status", nullptr), "");
}

LinkState LinkState::now(const std::string& iface) {
    const std::string status = askSupplicant(iface, "status", nullptr);
    LinkState state = of(status, "");
    if (!state.link)
        return state;
    state = of(status, askSupplicant(iface, "signal_poll", nullptr));
    state.link->ipv6 = globalIpv6(iface);
    state.link->connectedSeconds = connectedSeconds(iface, state.link->bssid);
    return state;
}

} // namespace cli
