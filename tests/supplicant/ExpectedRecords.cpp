// Networks as they have to be in memory, worked out from what the client answers with code of its
// own: nothing here is the library's.

#include "Records.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

namespace test {
namespace {

using Value = std::optional<std::string>;

constexpr std::size_t LONGEST_VALUE = 127; // of a longer one this is left
constexpr std::size_t MOST_LINES = 32;

const char* const CLIENT = "wpa_cli -iwlan0 ";
const char* const KEYS =
    "disabled bssid mode priority key_mgmt psk pairwise group proto eap auth_alg wep_tx_keyidx "
    "wep_key0 wep_key1 wep_key2 wep_key3 scan_ssid identity anonymous_identity password "
    "private_key_passwd ca_cert ca_path client_cert private_key phase1 phase2 private_key_passwd2 "
    "ca_cert2 ca_path2 client_cert2 private_key2";
const char* const TEXTS =
    "psk identity anonymous_identity password private_key_passwd ca_cert ca_path client_cert "
    "private_key phase1 phase2 private_key_passwd2 ca_cert2 ca_path2 client_cert2 private_key2";

Lines wordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The sum of the numbers of all words that the value contains.
unsigned int sum(const std::string& value,
                 const std::vector<std::pair<const char*, unsigned int>>& words) {
    unsigned int total = 0;
    for (const auto& [word, number] : words)
        total += contains(value, word) ? number : 0;
    return total;
}

// The number of the first of the words that the value contains.
unsigned int first(const std::string& value,
                   const std::vector<std::pair<const char*, unsigned int>>& words,
                   unsigned int otherwise) {
    for (const auto& [word, number] : words) {
        if (contains(value, word))
            return number;
    }
    return otherwise;
}

unsigned int decimal(const Value& value, unsigned int otherwise = 0) {
    return value ? static_cast<unsigned int>(std::atoi(value->c_str())) : otherwise;
}

Value withoutQuotes(std::string value) {
    if (contains(value, "\"")) {
        value.erase(value.rfind('"'));
        value.erase(0, 1);
    }
    return value;
}

Value valueIn(const std::string& reply) {
    if (reply.empty() || contains(reply, "FAIL") || contains(reply, "Invalid"))
        return {};
    return withoutQuotes(reply.substr(0, LONGEST_VALUE));
}

// In its conversation the client repeats a question behind its prompt; the answer is the next line.
std::string answerTo(const std::string& question, const Lines& conversation) {
    const auto asked = std::find(conversation.begin(), conversation.end(), "> " + question);
    if (asked == conversation.end() || asked + 1 == conversation.end())
        throw std::runtime_error("the client does not say anything to: " + question);
    return *(asked + 1);
}

// All fields of a network, asked of one client, which is far quicker than one each.
std::map<std::string, Value> valuesOf(unsigned int number) {
    const std::string question = "get_network " + std::to_string(number) + " ";
    const HostCommand client("{ printf '" + question + "%s\\n' " + KEYS + "; echo quit; } | " +
                             CLIENT);
    std::map<std::string, Value> values;
    for (const std::string& key : wordsOf(KEYS))
        values[key] = valueIn(answerTo(question + key, client.lines));
    return values;
}

struct Status {
    std::string state;
    Value ssid;
};

Value statusValue(const Lines& lines, const std::string& key) {
    for (const std::string& line : lines) {
        if (line.rfind(key + "=", 0) == 0)
            return line.substr(key.size() + 1);
    }
    return {};
}

Status statusNow() {
    const Lines lines = HostCommand(std::string(CLIENT) + "status").lines;
    return {statusValue(lines, "wpa_state").value_or(""), statusValue(lines, "ssid")};
}

struct Listed {
    unsigned int number;
    std::string ssid;
    bool isDisabled;
    bool isCurrent;
};

Lines columnsOf(const std::string& line) {
    Lines columns;
    std::istringstream stream(line);
    for (std::string column; std::getline(stream, column, '\t');) {
        if (!column.empty())
            columns.push_back(column);
    }
    return columns;
}

std::optional<Listed> listedIn(const std::string& line) {
    const Lines columns = columnsOf(line);
    if (columns.size() < 2)
        return {};
    const bool isNamed = columns[1] != "any" && !contains(columns[1], ":");
    if (isNamed && columns.size() < 3)
        return {};
    // Marks are looked for in the whole line, the SSID included.
    const bool isDisabled = contains(line, "[DISABLED]");
    return Listed{static_cast<unsigned int>(std::atoi(columns[0].c_str())) & 0xff,
                  isNamed ? columns[1] : "SSID N/A", isDisabled,
                  !isDisabled && contains(line, "[CURRENT]")};
}

Lines listedLines() {
    Lines lines = HostCommand(std::string(CLIENT) + "list_networks").lines;
    if (!lines.empty())
        lines.erase(lines.begin()); // the header
    lines.resize(std::min(lines.size(), MOST_LINES));
    return lines;
}

unsigned int networkStatus(bool isDisabled, bool isCurrent, const std::string& state) {
    const bool isConnecting =
        state == "SCANNING" || contains(state, "ASSOCIAT") || contains(state, "_HANDSHAKE");
    if (isCurrent && state == "COMPLETED")
        return 3;
    if (isCurrent && isConnecting)
        return 4;
    return isDisabled ? 5 : 1;
}

unsigned int keyManagement(const Value& value) {
    return value ? first(*value,
                         {{"WPA-NONE", 16},
                          {"NONE", 1},
                          {"WPA-EAP", 4},
                          {"WPA-PSK", 2},
                          {"IEEE8021X", 8}},
                         0)
                 : 2 + 4;
}

unsigned int eap(const Value& value) {
    return first(value.value_or(""),
                 {{"TTLS", 4},
                  {"TLS", 1},
                  {"PEAP", 2},
                  {"LEAP", 16},
                  {"MD5", 8},
                  {"MSCHAPV2", 32},
                  {"GTC", 64},
                  {"OTP", 128},
                  {"PSK", 256},
                  {"PAX", 512},
                  {"FAST", 1024}},
                 0);
}

unsigned int pairwise(const Value& value) {
    return value ? sum(*value, {{"NONE", 1}, {"TKIP", 2}, {"CCMP", 4}}) : 2 + 4;
}

unsigned int group(const Value& value) {
    return value ? sum(*value, {{"TKIP", 2}, {"CCMP", 4}, {"WEP104", 8}, {"WEP40", 16}})
                 : 2 + 4 + 8 + 16;
}

unsigned int proto(const Value& value) {
    return value ? sum(*value, {{"WPA", 1}, {"RSN", 2}}) : 1 + 2;
}

unsigned int authAlg(const Value& value) {
    return value ? first(*value, {{"OPEN", 1}, {"SHARED", 2}, {"LEAP", 3}}, 4) : 0;
}

// An empty text is none where there was none before.
std::string text(const Value& value) {
    return inWords(value && !value->empty() ? value->c_str() : nullptr);
}

void addWepKeys(Record& record, const std::map<std::string, Value>& values, bool areRead) {
    record["wep_tx_keyidx"] = inWords(areRead ? decimal(values.at("wep_tx_keyidx")) : 0);
    for (const char* const key : {"wep_key0", "wep_key1", "wep_key2", "wep_key3"})
        record[key] = text(areRead ? values.at(key) : Value());
}

Record recordOf(const Listed& listed, bool isCurrent, const std::string& state) {
    const auto values = valuesOf(listed.number);
    const unsigned int keys = keyManagement(values.at("key_mgmt"));
    const bool isDisabled = listed.isDisabled || decimal(values.at("disabled")) != 0;
    Record record{
        {"ssid", listed.ssid},
        {"number", inWords(listed.number)},
        {"status", inWords(networkStatus(isDisabled, isCurrent, state))},
        {"bssid", values.at("bssid").value_or("00:00:00:00:00:00")},
        {"mode", inWords(decimal(values.at("mode"), 2))},
        {"priority", inWords(decimal(values.at("priority")))},
        {"key_mgmt", inWords(keys)},
        {"pairwise", inWords(pairwise(values.at("pairwise")))},
        {"group", inWords(group(values.at("group")))},
        {"proto", inWords(proto(values.at("proto")))},
        {"eap", inWords(eap(values.at("eap")))},
        {"auth_alg", inWords(authAlg(values.at("auth_alg")))},
        {"broadcast", inWords(values.at("scan_ssid") == "0")},
        // No line of a scan is nothing but an SSID, so that a scan tells nothing.
        {"channel", inWords(0u)},
        {"strength", inWords(0u)},
        {"ip_address", inWords(nullptr)},
        {"changed", inWords(false)},
    };
    for (const std::string& key : wordsOf(TEXTS))
        record[key] = text(values.at(key));
    addWepKeys(record, values, keys == 1 || keys == 8);
    return record;
}

} // namespace

Records expectedRecords() {
    const Status status = statusNow();
    std::set<std::string> ssids;
    Records records;
    for (const std::string& line : listedLines()) {
        const auto listed = listedIn(line);
        if (!listed || !ssids.insert(listed->ssid).second) // the first one with an SSID stays
            continue;
        const bool isCurrent = status.ssid ? *status.ssid == listed->ssid : listed->isCurrent;
        records.push_back(recordOf(*listed, isCurrent, status.state));
    }
    std::reverse(records.begin(), records.end());
    return records;
}

} // namespace test
