// Whether the supplicant answers, which interfaces it serves, and whether it can save.

#include "checks/CheckFunctions.h"
#include "checks/ControlSocket.h"
#include "client/ClientReply.h"
#include "client/Listing.h"

#include <algorithm>

namespace cli {
namespace {

bool contains(const std::vector<std::string>& all, const std::string& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

std::string joined(const std::vector<std::string>& all) {
    std::string text;
    for (const std::string& one : all)
        text += (text.empty() ? "" : ", ") + one;
    return text;
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
    const std::string& first = listed.front();
    if (isForWifiDirect(first)) {
        return bad("the supplicant lists " + first + " first, which is for Wi-Fi Direct only",
                   "put p2p_disabled=1 into the supplicant's configuration, then restart it");
    }
    if (!iface.empty() && !contains(listed, iface))
        return bad("the supplicant does not serve " + iface,
                   "name one that it serves with -i: " + joined(listed));
    if (!iface.empty() && iface != first)
        return note("the networks are those of " + first + ", which is listed before " + iface,
                    "leave out -i, or let the supplicant serve " + iface + " alone");
    return good(joined(listed));
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
