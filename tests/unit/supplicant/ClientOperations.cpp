#include "ClientOperations.h"

namespace test {
namespace {

bool getValue(WifiUtil& util, const char* iface) {
    char value[64];
    return util.getNetworkValue(iface, 7, "ssid", value, sizeof(value));
}

bool create(WifiUtil& util, const char* iface) {
    unsigned char id = 0;
    return util.createNetwork(iface, "home", &id);
}

bool getAdapters(WifiUtil& util, const char* /*iface*/, char** lines, unsigned char max,
                 unsigned char* count) {
    return util.getWifiAdapters(lines, max, count);
}

template <auto Method>
bool query(WifiUtil& util, const char* iface, char** lines, unsigned char max,
           unsigned char* count) {
    return (util.*Method)(iface, lines, max, count);
}

template <auto Method, auto... Values>
bool command(WifiUtil& util, const char* iface) {
    return (util.*Method)(iface, Values...);
}

constexpr unsigned char ID = 7;

} // namespace

// clang-format off
const std::vector<Command> COMMANDS = {
    {"setNetworkValue", {"set_network", "7", "key_mgmt", "WPA-PSK"}, "/tmp/wpa_cli_set_network_result_", Success::BY_REPLY,
     [](WifiUtil& util, const char* iface) { return util.setNetworkValue(iface, ID, "key_mgmt", "WPA-PSK"); }},
    {"getNetworkValue", {"get_network", "7", "ssid"}, "/tmp/wpa_cli_get_network_result_", Success::BY_REPLY, getValue},
    {"connectToNetwork", {"select", "7"}, "/tmp/wpa_cli_connect_result_", Success::BY_EXIT_STATUS, command<&WifiUtil::connectToNetwork, ID>},
    {"disconnectFromNetwork", {"disconnect"}, "/tmp/wpa_cli_disconnect_result_", Success::BY_EXIT_STATUS, command<&WifiUtil::disconnectFromNetwork, ID>},
    {"removeNetwork", {"remove_network", "7"}, "/tmp/wpa_cli_remove_result_", Success::BY_REPLY, command<&WifiUtil::removeNetwork, ID>},
    {"saveConfiguration", {"save_config"}, "/tmp/wpa_cli_save_result_", Success::BY_REPLY, command<&WifiUtil::saveConfiguration>},
    {"reloadConfiguration", {"reconfigure"}, "/tmp/wpa_cli_reconfigure_result_", Success::BY_REPLY, command<&WifiUtil::reloadConfiguration>},
    {"forceReassociation", {"reassociate"}, "/tmp/wpa_cli_reassociate_result_", Success::BY_REPLY, command<&WifiUtil::forceReassociation>},
    {"executeCustom", {"bssid", "7", "02:00:00:00:01:00"}, "/tmp/wpa_custom_result_", Success::BY_REPLY,
     [](WifiUtil& util, const char* iface) { return util.executeCustom(iface, ID, "bssid", "02:00:00:00:01:00"); }},
    {"executeCustomWithoutValue", {"enable_network", "7"}, "/tmp/wpa_custom_result_", Success::BY_REPLY,
     [](WifiUtil& util, const char* iface) { return util.executeCustom(iface, ID, "enable_network", nullptr); }},
    {"createNetwork", {"add_network"}, "/tmp/wpa_cli_add_result_", Success::BY_REPLY, create, "3"},
};

const std::vector<Query> QUERIES = {
    {"getWifiAdapters", {"interface"}, 2, false, true, "/tmp/wpa_cli_interface_result_", getAdapters},
    {"getNetworkDatabaseSsids", {"-iwlan0", "list_networks"}, 1, true, false, "/tmp/wpa_cli_list_result_", query<&WifiUtil::getNetworkDatabaseSsids>},
    {"discoverNetworks", {"-iwlan0", "scan_results"}, 1, true, false, "/tmp/wpa_cli_scan_results_result_", query<&WifiUtil::discoverNetworks>},
    {"getCurrentNetworkStatus", {"-iwlan0", "status"}, 0, true, true, "/tmp/wpa_cli_status_result_", query<&WifiUtil::getCurrentNetworkStatus>},
};
// clang-format on

} // namespace test
