// Lines of the client and values of networks: any output is read without a fault, and the results stay
// within their bounds.

#include "Input.h"
#include "Require.h"

#include "model/WifiNetwork.h"
#include "settings/replies/Columns.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/NetworkKeys.h"
#include "settings/replies/PrintedSsid.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "settings/replies/ValueWords.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/Reply.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

using namespace platwifi;
using fuzz::Input;

namespace {

constexpr std::size_t PIECE = 127; // the longest piece of a line that a query returns

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool holds(const std::string& text, const char* word) {
    return text.find(word) != std::string::npos;
}

// The number at the start of a text, after blanks and a sign, limited to its range.
int plainDecimal(const std::string& text) {
    std::size_t place = text.find_first_not_of(" \t\n\v\f\r");
    if (place == std::string::npos)
        return 0;
    const bool isNegative = text[place] == '-';
    if (isNegative || text[place] == '+')
        ++place;
    std::int64_t value = 0;
    for (; place < text.size() && text[place] >= '0' && text[place] <= '9'; ++place)
        value = std::min<std::int64_t>(value * 10 + (text[place] - '0'), std::int64_t{1} << 40);
    value = isNegative ? -value : value;
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

void decimals(Input& input) {
    const std::string text = input.text();
    REQUIRE(decimalOf(text.c_str()) == plainDecimal(text));
    REQUIRE(channelAt(text.c_str()) >= 1 && channelAt(text.c_str()) <= 11);
    REQUIRE(strengthOf(text.c_str()) <= 100);
}

// All columns together are the line; the filled ones are those of its first 256 characters.
void columns(const std::string& line) {
    std::string joined;
    for (const std::string& column : columnsOf(line)) {
        REQUIRE(!holds(column, "\t"));
        joined += column + '\t';
    }
    REQUIRE(joined == line + '\t');
    Columns filled;
    for (const std::string& column : columnsOf(line.substr(0, 256)))
        if (!column.empty())
            filled.push_back(column);
    REQUIRE(filledColumnsOf(line) == filled);
}

// The first run of other characters than tabs and blanks, among the first 256.
void listedIds(const std::string& whole) {
    static constexpr const char* SEPARATORS = "\t ";
    const std::string line = whole.substr(0, 256);
    const std::size_t place = line.find_first_not_of(SEPARATORS);
    const auto id = listedId(whole);
    REQUIRE(id.has_value() == (place != std::string::npos));
    if (id)
        REQUIRE(*id ==
                plainDecimal(line.substr(place, line.find_first_of(SEPARATORS, place) - place)));
}

void splitLine(Input& input) {
    static constexpr void (*READERS[])(const std::string&) = {columns, listedIds};
    const auto read = READERS[input.below(2)];
    read(input.text());
}

std::string firstField(const std::string& line) {
    const std::size_t begin = line.find_first_not_of('\t');
    return begin == std::string::npos ? "" : line.substr(begin, line.find('\t', begin) - begin);
}

void listLine(Input& input) {
    const std::string line = input.text();
    WifiNetwork network;
    if (!readListLine(line, network))
        return;
    REQUIRE(network.getNetworkId() == static_cast<unsigned char>(plainDecimal(firstField(line))));
    REQUIRE(network.getSsid() && network.getBssid());
    REQUIRE(!std::strpbrk(network.getSsid(), "\t:"));
    REQUIRE(std::strcmp(network.getSsid(), "any") != 0);
    REQUIRE(std::strchr(network.getBssid(), ':'));
    setStatusByFlag(network, listFlagIn(line.c_str()));
    const unsigned int status = network.getNetworkStatus();
    if (holds(line, "[DISABLED]"))
        REQUIRE(status == NETWORK_STATUS_DISABLED);
    else
        REQUIRE(status ==
                (holds(line, "[CURRENT]") ? NETWORK_STATUS_CONNECTING : NETWORK_STATUS_ENABLED));
}

void scanLine(Input& input) {
    const std::string line = input.text();
    WifiNetwork network;
    readScanLine(line.c_str(), network);
    REQUIRE(network.getChannel() <= 11 && network.getStrength() <= 100);
    REQUIRE(!network.getBssid() || holds(line, network.getBssid()));
    REQUIRE(isWholeLine(line.c_str(), line.c_str()) && isInLine(line.c_str(), line.c_str()));
}

void statusLine(Input& input) {
    const std::string line = input.text();
    const auto [kind, text] = readStatusLine(line.c_str(), StatusReader::LOAD);
    const std::string value = text;
    REQUIRE(endsWith(line, value));
    REQUIRE(!holds(line, "=") || line[line.size() - value.size() - 1] == '=');
    REQUIRE(kind != StatusKind::SSID || (holds(line, "ssid=") && !holds(line, "bssid=")));
    REQUIRE(kind != StatusKind::STATE || holds(line, "wpa_state="));
    const StatusKind forStatus = readStatusLine(line.c_str(), StatusReader::CURRENT_STATUS).kind;
    REQUIRE((forStatus == StatusKind::STATE) == holds(line, "wpa_state="));
    REQUIRE((forStatus == StatusKind::SSID) ==
            (holds(line, "ssid=") && !holds(line, "wpa_state=")));
    const StatusKind forNetwork = readStatusLine(line.c_str(), StatusReader::CURRENT_NETWORK).kind;
    REQUIRE(forNetwork == (line.rfind("ssid=", 0) == 0 ? StatusKind::SSID : StatusKind::OTHER));
    const WpaState state = stateIn(line.c_str());
    REQUIRE(state <= WPA_STATE_COMPLETED);
    const char* const lines[] = {nullptr, line.c_str()};
    REQUIRE(stateOf(lines, 2) == (holds(line, "wpa_state=") ? state : WPA_STATE_UNKNOWN));
}

void valueWords(Input& input) {
    const std::string value = input.text();
    const char* const text = value.c_str();
    const unsigned int keys = keyManagementIn(text);
    const unsigned int modes = eapModeIn(text);
    REQUIRE(keys <= KEY_MGMT_WPA_NONE && (keys & (keys - 1)) == 0); // one flag at most
    REQUIRE(modes <= EAP_FAST && (modes & (modes - 1)) == 0);
    REQUIRE(authAlgIn(text) >= AUTH_ALG_OPEN && authAlgIn(text) <= AUTH_ALG_AUTO);
    REQUIRE(((pairwiseCiphersIn(text) & PAIRWISE_CCMP) != 0) == holds(value, "CCMP"));
    REQUIRE(((groupCiphersIn(text) & GROUP_WEP40) != 0) == holds(value, "WEP40"));
    REQUIRE(pairwiseCiphersIn(text) <= 7 && (groupCiphersIn(text) & ~0x1EU) == 0);
    REQUIRE(protocolsIn(text) <= (PROTOCOL_WPA | PROTOCOL_RSN));
}

void networkKeys(Input& input) {
    WifiNetwork network;
    std::string value;
    readNetworkKeys(network, [&](const char*) {
        value = input.text();
        return value == "-" ? nullptr : value.c_str(); // so that a field may be unset
    });
    REQUIRE(network.getWepIndex() <= 3 && network.getProtocol() <= 3);
    REQUIRE(network.getKeyManagement() <= KEY_MGMT_WPA_NONE && network.getAuthAlg() <= 4);
    const unsigned int status = network.getNetworkStatus();
    REQUIRE(status == NETWORK_STATUS_UNKNOWN || status == NETWORK_STATUS_DISABLED);
}

void replies(Input& input) {
    const std::string line = input.text();
    const bool isRefused = line.empty() || holds(line, "FAIL") || holds(line, "Invalid");
    REQUIRE(isAccepted(line.c_str()) == !isRefused);
    std::string stripped = line;
    stripQuotes(stripped.data());
    const std::size_t quote = line.rfind('"');
    if (quote == std::string::npos)
        REQUIRE(line == stripped.c_str());
    else
        REQUIRE(line.substr(0, quote).substr(quote == 0 ? 0 : 1) == stripped.c_str());
}

void timestamps(Input& input) {
    const std::string line = input.text();
    std::string text = line;
    const bool isCut = WifiUtil::ignoreTimestamp(text.data());
    REQUIRE(endsWith(line, text.c_str()) && isCut == (line.size() > std::strlen(text.c_str())));
    if (isCut) // the time and the blank behind it
        REQUIRE(std::count(line.begin(),
                           line.end() - static_cast<std::ptrdiff_t>(std::strlen(text.c_str())),
                           ':') >= 3);
}

// A reply as a query returns it: in pieces, none of them empty.
void addPieces(ReplyLines& reply, const std::string& line) {
    for (std::size_t at = 0; at < line.size() && reply.count < reply.capacity(); at += PIECE) {
        const std::string piece = line.substr(at, PIECE);
        char* const copy = new char[piece.size() + 1];
        std::memcpy(copy, piece.c_str(), piece.size() + 1);
        reply.data()[reply.count++] = copy;
    }
}

void listReply(Input& input) {
    ReplyLines reply(255);
    while (!input.isEmpty())
        addPieces(reply, input.text());
    for (const std::string& line : wholeListLines(reply)) {
        const auto listed = listedSsid(line);
        REQUIRE(!listed || listed->printed.find('\t') == std::string::npos);
    }
}

struct Listed {
    unsigned char id;
    std::string ssid;
};

std::string printedLine(const Listed& network, const char* bssid, const char* flags) {
    return std::to_string(network.id) + '\t' + printedSsid(network.ssid) + '\t' + bssid + '\t' +
           flags;
}

// Every network that the client lists is found again, by its own id and its own SSID.
void printedReply(Input& input) {
    static constexpr const char* BSSIDS[] = {"any", "02:00:00:00:01:00"};
    static constexpr const char* FLAGS[] = {"", "[CURRENT]", "[DISABLED]", "[TEMP-DISABLED]",
                                            "[P2P-PERSISTENT]"};
    ReplyLines reply(255);
    std::vector<Listed> networks;
    while (!input.isEmpty() && networks.size() < 8) {
        networks.push_back({input.byte(), ""});
        const char* const bssid = BSSIDS[input.below(2)];
        const char* const flags = FLAGS[input.below(5)];
        networks.back().ssid = input.text(32);
        addPieces(reply, printedLine(networks.back(), bssid, flags));
    }
    const Lines lines = wholeListLines(reply);
    REQUIRE(lines.size() == networks.size());
    for (std::size_t i = 0; i < networks.size(); ++i) {
        const auto listed = listedSsid(lines[i]);
        REQUIRE_FOR(listed && listed->id == networks[i].id, lines[i]);
        REQUIRE_FOR(listed->printed == printedSsid(networks[i].ssid), lines[i]);
    }
}

void printing(Input& input) {
    const std::string printed = printedSsid(input.rest());
    for (const char byte : printed)
        REQUIRE(byte >= ' ' && byte < 0x7F);
}

constexpr void (*PARSERS[])(Input&) = {
    decimals,    splitLine, listLine,   scanLine,  statusLine,   valueWords,
    networkKeys, replies,   timestamps, listReply, printedReply, printing,
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    PARSERS[input.below(sizeof(PARSERS) / sizeof(PARSERS[0]))](input);
    return 0;
}
