#include "Supplicant.h"

#include "Job.h"
#include "support/ThreadState.h"

#include <algorithm>
#include <pthread.h>

namespace stress {
namespace {

constexpr const char* OK = "OK\n";
constexpr const char* FAIL = "FAIL\n";

std::string ssidOf(const std::map<std::string, std::string>& values) {
    const std::string quoted = values.at("ssid");
    return quoted.substr(1, quoted.size() - 2);
}

bool isRefreshThread() {
    char name[16] = "";
    return pthread_getname_np(pthread_self(), name, sizeof(name)) == 0 &&
           std::string(name) == test::REFRESH_THREAD;
}

} // namespace

Supplicant& Supplicant::get() {
    static Supplicant supplicant;
    return supplicant;
}

Supplicant::Supplicant() {
    for (const std::string& ssid : FIXED_NETWORKS)
        append(ssid);
    m_saved = m_networks;
}

std::string& Supplicant::lastSelected() {
    static thread_local std::string ssid;
    return ssid;
}

void Supplicant::append(const std::string& ssid) {
    Network network;
    network.id = m_networks.empty() ? 0 : m_networks.back().id + 1;
    network.values["ssid"] = '"' + ssid + '"';
    m_networks.push_back(network);
}

bool Supplicant::has(const std::string& ssid) const {
    const std::lock_guard<std::mutex> guard(m_mutex);
    return std::any_of(m_networks.begin(), m_networks.end(),
                       [&](const Network& network) { return ssidOf(network.values) == ssid; });
}

void Supplicant::countAdapterQuery() {
    ++m_adapterQueries;
    if (isRefreshThread())
        ++m_refreshes;
}

std::string Supplicant::answer(const Words& command) {
    const bool isForAnInterface = command.size() > 1 && command[1].rfind("-i", 0) == 0;
    const std::size_t word = isForAnInterface ? 2 : 1;
    if (command.size() <= word)
        fail("a program was started without a command");
    if (command[word] == "interface")
        countAdapterQuery();
    const std::lock_guard<std::mutex> guard(m_mutex);
    const auto first = command.begin() + static_cast<std::ptrdiff_t>(word);
    return answerOf(*first, Words(first + 1, command.end()));
}

std::string Supplicant::answerOf(const std::string& word, const Words& arguments) {
    if (word == "get_network")
        return getNetwork(arguments);
    if (word == "interface")
        return "Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n";
    if (word == "list_networks")
        return list();
    if (word == "scan_results")
        return scanResults();
    if (word == "status")
        return status();
    if (word == "arg") // of the process lister
        return "7 wpa_supplicant -B -iwlan0\n";
    if (word == "add_network")
        return addNetwork();
    if (word == "set_network")
        return setNetwork(arguments);
    if (word == "select")
        return select(arguments.at(0));
    if (word == "remove_network")
        return removeNetwork(arguments.at(0));
    if (word == "reconfigure")
        return reconfigure();
    if (word == "save_config")
        m_saved = m_networks;
    if (word == "enable_network")
        networkOf(arguments.at(0)).isDisabled = false;
    if (word == "disconnect")
        m_current.clear();
    return OK;
}

std::string Supplicant::list() const {
    std::string text = "network id / ssid / bssid / flags\n";
    for (const Network& network : m_networks) {
        const std::string ssid = ssidOf(network.values);
        const char* const flag = ssid == m_current    ? "[CURRENT]"
                                 : network.isDisabled ? "[DISABLED]"
                                                      : "";
        text += std::to_string(network.id) + '\t' + ssid + "\tany\t" + flag + '\n';
    }
    return text;
}

std::string Supplicant::scanResults() const {
    std::string text = "bssid / frequency / signal level / flags / ssid\n";
    for (std::size_t i = 0; i < FIXED_NETWORKS.size(); ++i)
        text += "02:00:00:00:00:0" + std::to_string(i) + "\t2412\t-40\t[ESS]\t" +
                FIXED_NETWORKS[i] + '\n';
    return text;
}

std::string Supplicant::status() const {
    if (m_current.empty())
        return "wpa_state=INACTIVE\n";
    return "bssid=02:00:00:00:00:00\nfreq=2412\nssid=" + m_current + "\nwpa_state=COMPLETED\n";
}

std::string Supplicant::addNetwork() {
    append("");
    return std::to_string(m_networks.back().id) + '\n';
}

// An identity begins with the SSID of its network: "home#7".
std::string Supplicant::setNetwork(const Words& arguments) {
    Network& network = networkOf(arguments.at(0));
    const std::string& key = arguments.at(1);
    const std::string& value = arguments.at(2);
    const std::string ssid = ssidOf(network.values);
    if (key == "identity" && value.compare(1, value.find('#') - 1, ssid) != 0)
        fail("the identity " + value + " was written to " + ssid);
    if (key == "disabled")
        network.isDisabled = value != "0";
    else
        network.values[key] = value;
    return OK;
}

std::string Supplicant::getNetwork(const Words& arguments) {
    const Network& network = networkOf(arguments.at(0));
    const auto value = network.values.find(arguments.at(1));
    return value == network.values.end() ? FAIL : value->second + '\n';
}

std::string Supplicant::select(const std::string& id) {
    for (Network& network : m_networks)
        network.isDisabled = true;
    Network& selected = networkOf(id);
    selected.isDisabled = false;
    m_current = ssidOf(selected.values);
    lastSelected() = m_current;
    return OK;
}

std::string Supplicant::removeNetwork(const std::string& id) {
    const unsigned int removed = networkOf(id).id;
    const auto isRemoved = [&](const Network& network) { return network.id == removed; };
    const auto found = std::find_if(m_networks.begin(), m_networks.end(), isRemoved);
    if (ssidOf(found->values) == m_current)
        m_current.clear();
    m_networks.erase(found);
    return OK;
}

// The file has no ids: the networks get new ones, from 0.
std::string Supplicant::reconfigure() {
    m_networks = m_saved;
    for (std::size_t i = 0; i < m_networks.size(); ++i)
        m_networks[i].id = static_cast<unsigned int>(i);
    return OK;
}

Supplicant::Network& Supplicant::networkOf(const std::string& id) {
    const auto found = std::find_if(m_networks.begin(), m_networks.end(),
                                    [&](const Network& n) { return std::to_string(n.id) == id; });
    if (found == m_networks.end())
        fail("a command was given the id " + id + ", which no network has");
    return *found;
}

} // namespace stress
