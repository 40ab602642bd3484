#include "CommandLines.h"

#include "support/FieldTable.h"

namespace test {
namespace {

// Without `-iwlan0`, which is put in front.
const CommandLine QUESTIONS[] = {
    {"status"},
    {"status", "verbose"},
    {"status", "nonsense"},
    {"interface"},
    {"interface", "wlan7"},
    {"list_networks"},
    {"list_networks", "LAST_ID=0"},
    {"list_networks", "LAST_ID=99"},
    {"list_networks", "nonsense", "words"},
    {"scan_results"},
    {"scan_results", "nonsense"},
    {"bss", "0"},
    {"bss", "02:00:00:00:00:01"},
    {"bss"},
    {"get", "country"},
    {"get", "update_config"},
    {"get", "nonsense"},
    {"get"},
    {"get_capability", "key_mgmt"},
    {"get_capability", "freq"},
    {"get_capability", "pairwise", "strict"},
    {"get_capability", "nonsense"},
    {"get_capability"},
    {"ping"},
    {"ping", "more"},
    {"signal_poll"},
    {"get_network", "0", "ssid"},
    {"get_network", "1", "priority"},
    {"get_network", "0", "nonsense"},
    {"get_network", "7", "ssid"},
    {"get_network", "-1", "ssid"},
    {"get_network", "x", "ssid"},
    {"get_network", "", "ssid"},
    {"get_network", "0", ""},
    {"get_network", "0", "psk"},
    {"get_network", "0"},
    {"get_network"},
    {"get_network", "0", "ssid", "more"},
    {"get_network", "256", "ssid"},
    {"get_network", "00", "ssid"},
    {"get_network", "4294967296", "ssid"},
};

// Abbreviations, other letters, unknown words, and what looks like an option.
const CommandLine ODD_LINES[] = {
    {"stat"},
    {"sel"},
    {"get_n", "0", "ssid"},
    {"list"},
    {"s"},
    {""},
    {"STATUS"},
    {"Ping"},
    {"nonsense"},
    {"status "},
    {"get_network", "0", "-h"},
    {"get_network", "-v", "ssid"},
    {"get_network", "0", "--help"},
    {"set_network", "0", "psk", "-x"},
    {"set_network", "0", "identity", "-"},
    {"set_network", "0", "identity", "--"},
    {"--", "ping"},
    {"-x", "ping"},
    {"-h"},
    {"-v"},
    {"ping", "-iwlan0"},
    {"-iwlan0", "ping"},
    {"help"},
    {"help", "status"},
};

const CommandLine CHANGES[] = {
    {"add_network"},
    {"add_network", "more"},
    {"set_network", "2", "ssid", "\"new\""},
    {"set_network", "2", "key_mgmt", "NONE"},
    {"set_network", "2", "key_mgmt", "WPA-PSK", "SAE"},
    {"set_network", "3", "ssid", "6e6577"},
    {"set_network", "3", "ssid", "nonsense"},
    {"set_network", "3", "nonsense", "1"},
    {"set_network", "9", "ssid", "\"new\""},
    {"set_network", "3", "ssid"},
    {"set_network", "3"},
    {"set_network"},
    {"enable_network", "2"},
    {"enable_network", "9"},
    {"enable_network"},
    {"disable_network", "2"},
    {"disable_network", "9"},
    {"disable_network", "all"},
    {"bssid", "2", "02:00:00:00:00:01"},
    {"bssid", "2", "nonsense"},
    {"bssid", "2"},
    {"bssid"},
    {"list_networks"},
    {"remove_network", "3"},
    {"remove_network", "3"},
    {"remove_network"},
    {"remove_network", "nonsense"},
    {"save_config"},
    {"save_config", "more"},
    {"list_networks"},
};

// Their effect goes on after the answer, so nothing that would show it follows.
const CommandLine CONNECTION[] = {
    {"scan"},
    {"scan", "freq=2412", "passive=1"},
    {"scan", "nonsense"},
    {"reassociate"},
    {"reassociate", "more"},
    {"select", "0"},
    {"select", "9"},
    {"select", "any"},
    {"select"},
    {"select", "0", "freq=2412"},
    {"select_network", "1"},
    {"disconnect"},
    {"disconnect", "more"},
    {"reconfigure"},
    {"reconfigure", "more"},
    {"remove_network", "all"},
    {"list_networks"},
    {"interface"},
};

std::string longText(std::size_t length) {
    return '"' + std::string(length - 2, 'x') + '"';
}

// The longest request has 4095 bytes.
std::vector<std::string> oddValues(const std::string& field) {
    const std::size_t limit = 4095 - std::string("SET_NETWORK 0  ").size() - field.size();
    return {"",
            "1",
            "00112233445566778899aabbcc",
            "\"plain text\"",
            "\"quo\"te\"",
            "\"back\\slash\\\"",
            "\" blanks \"",
            "unquoted words",
            "\"\xC3\xA4 \xE2\x82\xAC \xFF\"",
            "\"tab\tline\nfeed\"",
            "P\"printed\\x41\"",
            "%s%n",
            "$(true) ' ; |",
            "-leading",
            "\"-quoted\"",
            longText(4000),
            longText(limit),
            longText(limit + 1),
            "NULL"};
}

std::vector<std::string> everyField() {
    std::vector<std::string> fields = {"sae_password",
                                       "private_key2_passwd"}; // second names of two fields
    for (const FieldRow& row : fieldRows()) {
        if (row.key)
            fields.emplace_back(row.key);
    }
    return fields;
}

void append(std::vector<CommandLine>& all, const CommandLine& line) {
    all.push_back(line);
    all.back().insert(all.back().begin(), "-iwlan0");
}

} // namespace

std::vector<CommandLine> everyCommandLine() {
    std::vector<CommandLine> all = {{"interface"}, {"status"}, {"nonsense"}};
    for (const CommandLine& line : QUESTIONS)
        append(all, line);
    for (const CommandLine& line : ODD_LINES)
        append(all, line);
    append(all, {"disconnect"}); // a connection would change with the values
    for (const std::string& field : everyField()) {
        for (const std::string& value : oddValues(field)) {
            append(all, {"set_network", "0", field, value});
            append(all, {"get_network", "0", field});
        }
    }
    for (const CommandLine& line : CHANGES)
        append(all, line);
    for (const CommandLine& line : CONNECTION)
        append(all, line);
    return all;
}

} // namespace test
