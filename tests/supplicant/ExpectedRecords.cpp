// Networks as they must be in memory, computed from the client's replies. Nothing here is the library's,
// so that a mistake of the library is not repeated.

#include "Records.h"
#include "support/FieldTable.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

namespace test {
namespace {

using platwifi::Field;
using Value = std::optional<std::string>;
using Values = std::map<std::string, Value>; ///< by the client's keys

constexpr std::size_t MAX_VALUE = 127; // the rest of a longer value is dropped
constexpr std::size_t MAX_LINES = 32;

const char* const CLIENT = "wpa_cli -iwlan0 ";

Lines keysOf(bool (*isWanted)(const FieldRow&)) {
    Lines keys;
    for (const FieldRow& row : fieldRows()) {
        if (row.key && isWanted(row))
            keys.push_back(row.key);
    }
    return keys;
}

// What is asked about each network.
Lines queriedKeys() {
    Lines keys = keysOf([](const FieldRow& row) { return row.field != Field::SSID; });
    keys.push_back("disabled");
    return keys;
}

bool isWepKey(const FieldRow& row) {
    return row.field >= Field::WEP_KEY0 && row.field <= Field::WEP_KEY3;
}

// The texts that are read for every network.
bool isPlainText(const FieldRow& row) {
    return isText(row) && !isWepKey(row) && row.field != Field::SSID && row.field != Field::BSSID;
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
    return withoutQuotes(reply.substr(0, MAX_VALUE));
}

// In its interactive mode the client repeats a command after its prompt; the reply is the next line.
std::string replyTo(const std::string& command, const Lines& output) {
    const auto echo = std::find(output.begin(), output.end(), "> " + command);
    if (echo == output.end() || echo + 1 == output.end())
        throw std::runtime_error("the client has no reply to: " + command);
    return *(echo + 1);
}

// All fields of a network from one client, which is much faster than a client for each.
Values valuesOf(unsigned int id) {
    const std::string command = "get_network " + std::to_string(id) + " ";
    const Lines keys = queriedKeys();
    std::string input;
    for (const std::string& key : keys)
        input += command + key + "\n";
    const HostCommand client("echo '" + input + "quit' | " + CLIENT);
    Values values;
    for (const std::string& key : keys)
        values[key] = valueIn(replyTo(command + key, client.lines));
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
    unsigned int id;
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
    // Flags are looked for in the whole line, the SSID included.
    const bool isDisabled = contains(line, "[DISABLED]");
    return Listed{static_cast<unsigned int>(std::atoi(columns[0].c_str())) & 0xff,
                  isNamed ? columns[1] : "SSID N/A", isDisabled,
                  !isDisabled && contains(line, "[CURRENT]")};
}

Lines listedLines() {
    Lines lines = HostCommand(std::string(CLIENT) + "list_networks").lines;
    if (!lines.empty())
        lines.erase(lines.begin()); // the header
    lines.resize(std::min(lines.size(), MAX_LINES));
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

// An empty text does not replace an unset one.
std::string text(const Value& value) {
    return inWords(value && !value->empty() ? value->c_str() : nullptr);
}

void addWepKeys(Record& record, const Values& values, bool areRead) {
    record["wep_tx_keyidx"] = inWords(areRead ? decimal(values.at("wep_tx_keyidx")) : 0);
    for (const std::string& key : keysOf(isWepKey))
        record[key] = text(areRead ? values.at(key) : Value());
}

Record recordOf(const Listed& listed, bool isCurrent, const std::string& state) {
    const auto values = valuesOf(listed.id);
    const unsigned int keys = keyManagement(values.at("key_mgmt"));
    const bool isDisabled = listed.isDisabled || decimal(values.at("disabled")) != 0;
    Record record{
        {"ssid", listed.ssid},
        {"id", inWords(listed.id)},
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
        // A load takes nothing from a scan line that is more than an SSID.
        {"channel", inWords(0u)},
        {"strength", inWords(0u)},
        {"ip_address", inWords(nullptr)},
        {"changed", inWords(false)},
    };
    for (const std::string& key : keysOf(isPlainText))
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
        if (!listed || !ssids.insert(listed->ssid).second) // of two with one SSID the first is kept
            continue;
        const bool isCurrent = status.ssid ? *status.ssid == listed->ssid : listed->isCurrent;
        records.push_back(recordOf(*listed, isCurrent, status.state));
    }
    std::reverse(records.begin(), records.end());
    return records;
}

} // namespace test
