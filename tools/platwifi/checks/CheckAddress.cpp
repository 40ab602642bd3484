// Whether the connected interface has an address. The supplicant only makes the link.

#include "checks/CheckFunctions.h"
#include "checks/Processes.h"
#include "checks/SystemFiles.h"
#include "client/ClientReply.h"
#include "client/ControlSocket.h"
#include "values/Texts.h"

#include <array>
#include <fstream>

namespace cli {
namespace {

constexpr const char* NETWORKD = "systemd-networkd";
constexpr std::array<const char*, 6> DHCP_CLIENTS{"dhcpcd", "dhclient",       "udhcpc",
                                                  NETWORKD, "NetworkManager", "connmand"};
constexpr const char* NETWORKD_STATE = "/run/systemd/netif/links";
constexpr const char* IPV6_ADDRESSES = "/proc/net/if_inet6";
constexpr std::size_t IPV6_SCOPE = 3;
constexpr std::size_t IPV6_INTERFACE = 5;

// One that is valid beyond the link. The status has IPv4 addresses only.
bool hasIpv6Address(const std::string& iface) {
    std::ifstream addresses(IPV6_ADDRESSES);
    for (std::string line; std::getline(addresses, line);) {
        const WordList words = wordsOf(line);
        if (words.size() > IPV6_INTERFACE && words[IPV6_INTERFACE] == iface &&
            words[IPV6_SCOPE] == "00")
            return true;
    }
    return false;
}

// A client gives such an address to itself where no DHCP server answers.
bool isLinkLocal(const std::string& address) {
    return address.compare(0, 8, "169.254.") == 0;
}

bool isIgnoredByNetworkd(const std::string& iface) {
    const std::string file = fileByIndex(NETWORKD_STATE, iface);
    return !file.empty() && valueIn(file, "ADMIN_STATE") == "unmanaged";
}

// "" if none is running that may serve the interface.
std::string dhcpClientFor(const std::string& iface, const std::vector<WordList>& commands) {
    for (const char* const client : DHCP_CLIENTS) {
        const bool isIgnoring = client == std::string(NETWORKD) && isIgnoredByNetworkd(iface);
        if (isRunning(client, commands) && !isIgnoring)
            return client;
    }
    return "";
}

std::string nextStep(const std::string& iface) {
    const std::vector<WordList> commands = runningCommands();
    const std::string client = dhcpClientFor(iface, commands);
    if (!client.empty())
        return client + " is running: wait some seconds, then make sure that it serves " + iface +
               ", and read its messages; " + AFTER_CONNECTING;
    if (isRunning(NETWORKD, commands))
        return std::string(NETWORKD) + " is running, but has no .network file for " + iface +
               ": write one; " + AFTER_CONNECTING;
    return std::string(
               "no DHCP client is running: start one, such as systemd-networkd or dhcpcd; ") +
           AFTER_CONNECTING;
}

// The bridge or bond that has the address in the place of the interface; "" if there is none.
std::string masterOf(const std::string& iface) {
    return valueIn(systemFolderOf(iface) + "/master/uevent", "INTERFACE");
}

// @param address  of the link, or ""
Finding missing(const std::string& iface, const std::string& address) {
    const std::string found = address.empty()
                                  ? iface + " is connected, but has no address"
                                  : iface + " has only the address " + address +
                                        ", which it gave to itself: no DHCP server has answered";
    return bad(found, nextStep(iface));
}

} // namespace

Finding checkAddress(const std::string& iface) {
    const std::string asked = interfaceFor(iface);
    const std::string status = clientReply(asked, "status", nullptr);
    if (lineValue("wpa_state", status) != "COMPLETED")
        return good(asked + " is not connected");
    const std::string address = lineValue("ip_address", status);
    if (!address.empty() && !isLinkLocal(address))
        return good(address);
    if (hasIpv6Address(asked))
        return good("an IPv6 address");
    const std::string master = masterOf(asked);
    if (!master.empty())
        return good(asked + " is a part of " + master);
    return missing(asked, address);
}

} // namespace cli
