#include "host/Link.h"

#include "client/Question.h"
#include "host/Addresses.h"
#include "host/ConnectedTime.h"
#include "model/Vocabulary.h"
#include "settings/replies/PrintedSsid.h"
#include "values/Texts.h"

#include <charconv>

namespace cli {
namespace {

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
    const std::string text = lineValue("pmf", status);
    if (text.empty())
        return lineValue("key_mgmt", status).empty() ? "" : pmfWord(PMF_DISABLED);
    const auto number = numberIn(text, {PMF_OPTIONAL, PMF_REQUIRED});
    return number ? pmfWord(static_cast<unsigned int>(*number)) : "";
}

Link linkOf(const std::string& status, const std::string& signal) {
    Link link;
    link.bssid = lineValue("bssid", status);
    link.frequency = numberIn(lineValue("freq", status), FREQUENCIES);
    link.signal = numberIn(lineValue("RSSI", signal), SIGNALS);
    link.speed = numberIn(lineValue("LINKSPEED", signal), SPEEDS);
    link.keyManagement = lineValue("key_mgmt", status);
    link.pairwiseCipher = lineValue("pairwise_cipher", status);
    link.groupCipher = lineValue("group_cipher", status);
    link.pmf = pmfOf(status);
    link.ipv4 = lineValue("ip_address", status);
    return link;
}

} // namespace

LinkState LinkState::of(const std::string& status, const std::string& signal) {
    LinkState state;
    const std::string word = lineValue("wpa_state", status);
    state.isReported = !word.empty();
    state.state = stateOf(word);
    state.ssid = platwifi::bytesOfPrinted(lineValue("ssid", status));
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
