#include "ModelSupplicant.h"

#include <algorithm>
#include <cstdio>

namespace fuzz {
namespace {

constexpr const char* OK = "OK\n";
constexpr const char* FAIL = "FAIL\n";
constexpr const char* NO_BSSID = "any";

const char* const SECRETS[] = {"psk",      "password", "wep_key0",           "wep_key1",
                               "wep_key2", "wep_key3", "private_key_passwd", "private_key2_passwd"};

bool isSecret(const std::string& key) {
    return std::find(std::begin(SECRETS), std::end(SECRETS), key) != std::end(SECRETS);
}

std::string inQuotes(const std::string& text) {
    return '"' + text + '"';
}

bool isQuoted(const std::string& value) {
    return value.size() >= 2 && value.front() == '"' && value.back() == '"';
}

std::string printedByte(char byte) {
    static constexpr char NAMED[] = "\"\"\\\\\033e\nn\rr\tt";
    for (const char* pair = NAMED; *pair; pair += 2) {
        if (*pair == byte)
            return {'\\', pair[1]};
    }
    if (byte >= ' ' && byte < 0x7F)
        return {byte};
    char escape[5];
    std::snprintf(escape, sizeof(escape), "\\x%02x", static_cast<unsigned char>(byte));
    return escape;
}

// A network is left out of the file if its key management is a kind of WPA, as by default, and it has no key.
bool isSavable(const ModelSupplicant::Network& network) {
    const auto keys = network.values.find("key_mgmt");
    const bool isOpen =
        keys != network.values.end() && keys->second.find("WPA-PSK") == std::string::npos;
    return isOpen || network.values.count("psk") != 0;
}

} // namespace

ModelSupplicant& ModelSupplicant::instance() {
    static ModelSupplicant model;
    return model;
}

void ModelSupplicant::reset() {
    *this = ModelSupplicant();
}

ModelSupplicant::Network& ModelSupplicant::configure(unsigned int id,
                                                     const std::optional<std::string>& ssid,
                                                     bool isSavable) {
    Network network{++m_marks, id, ssid, {}, false};
    network.values["key_mgmt"] = isSavable ? "NONE" : "WPA-PSK";
    m_networks.push_back(network);
    m_file.push_back(network);
    return m_networks.back();
}

const ModelSupplicant::Network* ModelSupplicant::withId(const std::string& id) const {
    for (const Network& network : m_networks) {
        if (std::to_string(network.id) == id)
            return &network;
    }
    return nullptr;
}

const ModelSupplicant::Network* ModelSupplicant::withMark(unsigned int mark) const {
    for (const Network& network : m_networks) {
        if (network.mark == mark)
            return &network;
    }
    return nullptr;
}

std::string ModelSupplicant::printed(const std::string& ssid) {
    std::string text;
    for (const char byte : ssid)
        text += printedByte(byte);
    return text;
}

ModelSupplicant::Answer ModelSupplicant::run(const std::string& iface, const Command& command) {
    ++commands;
    const Fault fault = before ? before(command) : Fault::NONE;
    if (fault == Fault::KILLED)
        return {false, ""};
    if (fault == Fault::SILENT)
        return {true, ""};
    if (fault == Fault::REFUSED)
        return {true, FAIL};
    if (fault == Fault::GARBAGE)
        return {true, garbage};
    if (!iface.empty() && iface != "wlan0")
        return {false, "Failed to connect to non-global ctrl_ifname: " + iface + "\n"};
    const std::string output = stamped(command.front(), carriedOut(command));
    return fault == Fault::KILLED_AFTER ? Answer{false, ""} : Answer{true, output};
}

// A client with stamps writes one in front of each reply.
std::string ModelSupplicant::stamped(const std::string& word, std::string reply) const {
    if (hasStamps)
        reply.insert(word == "interface" ? reply.find(adapters) : 0, "12:34:56.789: ");
    return reply;
}

std::string ModelSupplicant::carriedOut(const Command& command) {
    const std::string& word = command.front();
    if (word == "interface")
        return "Selected interface 'wlan0'\nAvailable interfaces:\n" + adapters;
    if (word == "list_networks")
        return list();
    if (word == "scan_results")
        return "bssid / frequency / signal level / flags / ssid\n" + found;
    if (word == "status")
        return status();
    if (word == "add_network")
        return add();
    if (word == "save_config") {
        m_file.clear();
        std::copy_if(m_networks.begin(), m_networks.end(), std::back_inserter(m_file), isSavable);
        return OK;
    }
    if (word == "reconfigure")
        return readFile();
    if (word == "scan" || word == "disconnect" || word == "reassociate")
        return OK;
    Network* const network =
        command.size() > 1 ? const_cast<Network*>(withId(command[1])) : nullptr;
    return network ? onNetwork(command, *network) : FAIL;
}

std::string ModelSupplicant::onNetwork(const Command& command, Network& network) {
    const std::string& word = command.front();
    if (word == "get_network" && command.size() == 3)
        return get(network, command[2]);
    if (word == "set_network" && command.size() == 4)
        return set(network, command[2], command[3]);
    if (word == "bssid" && command.size() == 3)
        return OK;
    if (word == "enable_network")
        return set(network, "disabled", "0");
    if (word == "select")
        return select(network);
    return word == "remove_network" ? remove(network) : FAIL;
}

std::string ModelSupplicant::add() {
    unsigned int id = 0;
    for (const Network& network : m_networks)
        id = std::max(id, network.id + 1);
    m_networks.push_back({++m_marks, id, std::nullopt, {}, true});
    return std::to_string(id) + "\n";
}

std::string ModelSupplicant::remove(const Network& network) {
    if (network.mark == current)
        current = 0;
    m_networks.erase(m_networks.begin() + (&network - m_networks.data()));
    return OK;
}

std::string ModelSupplicant::select(const Network& network) {
    current = network.mark;
    for (Network& other : m_networks)
        other.isDisabled = other.mark != current;
    return OK;
}

std::string ModelSupplicant::set(Network& network, const std::string& key,
                                 const std::string& value) {
    if (key == "disabled") {
        network.isDisabled = value != "0";
    } else if (key == "ssid") {
        if (!isQuoted(value))
            return FAIL;
        network.ssid = value.substr(1, value.size() - 2);
    } else {
        network.values[key] = value;
    }
    return OK;
}

std::string ModelSupplicant::get(const Network& network, const std::string& key) const {
    if (key == "disabled")
        return network.isDisabled ? "1" : "0";
    if (key == "ssid")
        return network.ssid ? inQuotes(*network.ssid) : FAIL;
    const auto value = network.values.find(key);
    if (value == network.values.end())
        return FAIL;
    return isSecret(key) ? "*" : value->second;
}

std::string ModelSupplicant::list() const {
    std::string text = "network id / ssid / bssid / flags\n";
    for (const Network& network : m_networks) {
        text += std::to_string(network.id) + '\t' + printed(network.ssid.value_or("")) + '\t' +
                NO_BSSID + '\t';
        text += network.mark == current ? "[CURRENT]\n"
                : network.isDisabled    ? "[DISABLED]\n"
                                        : "\n";
    }
    return text;
}

std::string ModelSupplicant::status() const {
    const Network* const network = withMark(current);
    std::string text;
    if (network && network->ssid)
        text = "bssid=02:00:00:00:01:00\nssid=" + printed(*network->ssid) +
               "\nid=" + std::to_string(network->id) + "\nmode=station\n";
    return text + "wpa_state=" + state + "\naddress=02:00:00:00:00:00\n";
}

std::string ModelSupplicant::readFile() {
    m_networks = m_file;
    unsigned int id = 0;
    for (Network& network : m_networks)
        network.id = id++;
    if (!withMark(current))
        current = 0;
    return OK;
}

} // namespace fuzz
