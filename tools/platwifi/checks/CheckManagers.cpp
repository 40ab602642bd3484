// Other programs that manage the interface. Two managers undo each other's work.

#include "checks/CheckFunctions.h"
#include "checks/Processes.h"
#include "checks/SystemFiles.h"
#include "values/Texts.h"

namespace cli {
namespace {

// systemd-networkd is none: it connects to no network, and gives the address.
constexpr const char* NETWORK_MANAGER_STATE = "/run/NetworkManager/devices";
constexpr const char* NETPLAN_FOLDER = "/run/netplan/";

using Commands = std::vector<WordList>;

std::string nameOf(const std::string& iface) {
    return iface.empty() ? "the interface" : iface;
}

// NetworkManager keeps a file of each interface that it manages or has managed.
Finding networkManager(const std::string& iface, const Commands& commands) {
    if (!isRunning("NetworkManager", commands))
        return good("");
    const std::string step = "let it ignore the interface, as root: nmcli device set " +
                             (iface.empty() ? "INTERFACE" : iface) + " managed no; " +
                             AFTER_CONNECTING;
    const std::string file = fileByIndex(NETWORK_MANAGER_STATE, iface);
    if (!file.empty() && valueIn(file, "managed") == "true")
        return bad("NetworkManager manages " + iface + ", too", step);
    if (!iface.empty() && !namesIn(NETWORK_MANAGER_STATE).empty())
        return good("");
    return note("NetworkManager is running, and does not show whether it manages " + nameOf(iface),
                step);
}

// These show no other program which interfaces they manage; without a setting it is every one.
Finding quietManager(const char* program, const char* service, const std::string& iface,
                     const Commands& commands) {
    if (!isRunning(program, commands))
        return good("");
    return note(std::string(program) + " is running, and manages " + nameOf(iface) +
                    ", too, unless its configuration excludes that",
                std::string("stop it as root: systemctl disable --now ") + service + "; " +
                    AFTER_CONNECTING);
}

Finding iwd(const std::string& iface, const Commands& commands) {
    return quietManager("iwd", "iwd", iface, commands);
}

Finding connman(const std::string& iface, const Commands& commands) {
    return quietManager("connmand", "connman", iface, commands);
}

// netplan starts a supplicant for systemd-networkd.
Finding netplan(const std::string&, const Commands& commands) {
    for (const WordList& supplicant : supplicantsAmong(commands)) {
        const std::string file = optionOf(supplicant, "-c");
        if (beginsWith(file, NETPLAN_FOLDER)) {
            return note("netplan has started the supplicant, and makes its configuration " + file +
                            " anew at each start of the system: saved changes are lost then",
                        std::string("remove the interface from the files in /etc/netplan, and "
                                    "start the supplicant by a unit; ") +
                            AFTER_CONNECTING);
        }
    }
    return good("");
}

constexpr Finding (*MANAGERS[])(const std::string&, const Commands&) = {networkManager, iwd,
                                                                        connman, netplan};

} // namespace

// What is certainly wrong comes before what may be.
Finding checkManagers(const std::string& iface) {
    const std::string examined = examinedInterface(iface);
    const Commands commands = runningCommands();
    Finding worst = good("no other program manages " + nameOf(examined));
    for (const auto& manager : MANAGERS) {
        Finding finding = manager(examined, commands);
        if (finding.health > worst.health)
            worst = std::move(finding);
    }
    return worst;
}

} // namespace cli
