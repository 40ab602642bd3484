#include "ProfiledHost.h"

#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "support/Lines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace test {
namespace {

bool isQuery(const std::string& command) {
    const std::vector<std::string> queries = {"interface", "list_networks", "scan_results",
                                              "status",    "get_network",   "arg"};
    return std::any_of(queries.begin(), queries.end(), [&](const std::string& query) {
        return command.compare(0, query.size(), query) == 0;
    });
}

} // namespace

ProfiledHost::~ProfiledHost() {
    WifiHostSettings::unload();
    WifiUtil::unload();
}

void ProfiledHost::has(const std::string& printed, const std::string& flags,
                       const std::string& bssid) {
    m_lines.push_back(std::to_string(m_lines.size()) + "\t" + printed + "\t" + bssid + "\t" +
                      flags);
}

std::string ProfiledHost::list() const {
    std::string text = "network id / ssid / bssid / flags\n";
    for (const std::string& line : m_lines)
        text += line + "\n";
    return text;
}

StandIn::Answer ProfiledHost::on(std::vector<std::string> command) {
    command.insert(command.begin(), "-iwlan0");
    return standIn.on(command);
}

WifiHostSettings& ProfiledHost::load() {
    standIn.on({"interface"}).prints("Selected interface\nAvailable interfaces:\n" + adapters);
    on({"list_networks"}).prints(list());
    on({"scan_results"}).prints("bssid / frequency / signal level / flags / ssid\n" + scan);
    on({"status"}).prints(status);
    standIn.on({"*"}).prints("OK\n");
    WifiHostSettings& settings = *WifiHostSettings::reload(nullptr);
    m_seen = standIn.calls().size();
    return settings;
}

std::vector<std::string> ProfiledHost::changes() {
    const std::vector<Arguments> calls = standIn.calls();
    std::vector<std::string> commands;
    for (std::size_t i = m_seen; i < calls.size(); ++i) {
        std::string command;
        for (std::size_t word = 2; word < calls[i].size(); ++word)
            command += (word == 2 ? "" : " ") + calls[i][word];
        if (!isQuery(command))
            commands.push_back(command);
    }
    m_seen = calls.size();
    return commands;
}

WifiNetwork& ProfiledHost::network(const std::string& ssid) {
    WifiNetwork* const network =
        WifiHostSettings::getInstance(nullptr)->getNetwork("wlan0", ssid.c_str());
    if (!network)
        throw std::runtime_error("there is no network " + ssid);
    return *network;
}

std::vector<std::string> ssidsIn(WifiHostSettings& settings) {
    platwifi::ReplyLines ssids(255);
    EXPECT_TRUE(settings.getNetworkDatabaseSsids(nullptr, ssids.data(), 255, &ssids.count));
    return toStrings(ssids);
}

} // namespace test
