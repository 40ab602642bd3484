// Whether the supplicant answers, which interfaces it serves, and whether it can save.

#include "checks/CheckFunctions.h"
#include "client/ClientReply.h"
#include "client/ControlSocket.h"
#include "client/Listing.h"
#include "client/ProfileInUse.h"
#include "values/Nearest.h"

#include <algorithm>

namespace cli {
namespace {

bool contains(const std::vector<std::string>& all, const std::string& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

// The adapter whose networks are used; "" if all listed ones are for Wi-Fi Direct and the profile skips them.
std::string firstAdapter(const std::vector<std::string>& listed) {
    if (!inUse(platwifi::rule::P2P_DEVICES_ARE_SKIPPED))
        return listed.front();
    const auto first = std::find_if_not(listed.begin(), listed.end(), isForWifiDirect);
    return first == listed.end() ? "" : *first;
}

Finding onlyForWifiDirect(const std::string& iface, const char* place) {
    return bad("the supplicant lists " + iface + place + ", which is for Wi-Fi Direct only",
               "put p2p_disabled=1 into the supplicant's configuration, and start it with an "
               "interface, such as -i wlan0");
}

Finding nameIsTooLong(const std::string& iface, std::size_t most) {
    return bad("the name " + iface + " has " + std::to_string(iface.size()) +
                   " characters; the profile in use allows " + std::to_string(most),
               "unset PLATWIFI_PROFILE, or set it to modern; or give the interface a shorter name, "
               "such as wlan0, by a .link file of systemd");
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

} // namespace

Finding checkReply(const std::string& iface) {
    const std::string asked = interfaceFor(iface);
    const std::string reply = clientReply(asked, "ping", nullptr);
    if (reply.find("PONG") != std::string::npos)
        return good("comes for " + asked);
    const std::string noAnswer = "the supplicant does not answer for " + asked;
    if (!reply.empty())
        return bad(noAnswer + ": " + firstLine(reply), "correct that, or restart the supplicant");
    return bad(noAnswer, "it is suspended or stuck: wake it by kill -CONT and its process id, or "
                         "restart it");
}

Finding checkInterface(const std::string& iface) {
    const std::vector<std::string> listed = listedAdapters();
    if (listed.empty())
        return bad("the supplicant lists no interface", "start it with one, such as -i wlan0");
    const std::string first = firstAdapter(listed);
    if (first.empty())
        return onlyForWifiDirect(listOf(listed), " alone");
    if (isForWifiDirect(first))
        return onlyForWifiDirect(first, " first");
    if (!iface.empty() && !contains(listed, iface))
        return bad("the supplicant does not serve " + iface,
                   "name one that it serves with -i: " + listOf(listed));
    const std::string& used = iface.empty() ? first : iface;
    const std::size_t most = inUse(platwifi::rule::LONGEST_INTERFACE);
    if (used.size() > most)
        return nameIsTooLong(used, most);
    if (used != first)
        return note("the networks are those of " + first + ", which is listed before " + iface,
                    "leave out -i, or let the supplicant serve " + iface + " alone");
    return good(listOf(listed));
}

// Some clients print the time of day before the reply, so only the last character counts.
Finding checkSaving(const std::string& iface) {
    const std::string reply = clientReply(interfaceFor(iface), "get", "update_config");
    const char last = reply.empty() ? '\0' : reply.back();
    if (last == '1')
        return good("is on: changes can be saved");
    if (last == '0')
        return bad("is off: nothing can be saved",
                   "put update_config=1 into the supplicant's configuration, then restart it");
    return note("is unknown: this supplicant does not report it",
                "make sure that update_config=1 is in the supplicant's configuration");
}

} // namespace cli
