#include "host/ConnectedTime.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <linux/nl80211.h>
#include <memory>
#include <net/if.h>
#include <netinet/ether.h>
#include <netlink/genl/ctrl.h>
#include <netlink/genl/genl.h>
#include <netlink/netlink.h>
#include <unistd.h>

namespace cli {
namespace {

struct Free {
    void operator()(nl_sock* socket) const { nl_socket_free(socket); }
    void operator()(nl_msg* message) const { nlmsg_free(message); }
};

using Socket = std::unique_ptr<nl_sock, Free>;
using Message = std::unique_ptr<nl_msg, Free>;

struct Search {
    ether_addr bssid{};
    std::optional<int> seconds;
};

std::optional<int> secondsIn(nlattr* station) {
    nlattr* values[NL80211_STA_INFO_MAX + 1] = {};
    if (nla_parse_nested(values, NL80211_STA_INFO_MAX, station, nullptr) < 0)
        return std::nullopt;
    const nlattr* const time = values[NL80211_STA_INFO_CONNECTED_TIME];
    if (!time)
        return std::nullopt;
    constexpr std::uint32_t MOST = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(nla_get_u32(time), MOST));
}

bool isOf(const ether_addr& bssid, const nlattr* address) {
    const auto* const bytes = static_cast<const std::uint8_t*>(nla_data(address));
    return nla_len(address) == sizeof bssid.ether_addr_octet &&
           std::equal(std::begin(bssid.ether_addr_octet), std::end(bssid.ether_addr_octet), bytes);
}

// Called with each station that the kernel knows on the interface.
int onStation(nl_msg* message, void* argument) {
    auto& search = *static_cast<Search*>(argument);
    auto* const header = static_cast<genlmsghdr*>(nlmsg_data(nlmsg_hdr(message)));
    nlattr* values[NL80211_ATTR_MAX + 1] = {};
    if (nla_parse(values, NL80211_ATTR_MAX, genlmsg_attrdata(header, 0), genlmsg_attrlen(header, 0),
                  nullptr) < 0)
        return NL_SKIP;
    nlattr* const station = values[NL80211_ATTR_STA_INFO];
    const nlattr* const address = values[NL80211_ATTR_MAC];
    if (station && address && isOf(search.bssid, address))
        search.seconds = secondsIn(station);
    return NL_OK;
}

Message stationsOf(unsigned int iface, int family) {
    Message message(nlmsg_alloc());
    if (!message ||
        !genlmsg_put(message.get(), NL_AUTO_PORT, NL_AUTO_SEQ, family, 0, NLM_F_DUMP,
                     NL80211_CMD_GET_STATION, 0) ||
        nla_put_u32(message.get(), NL80211_ATTR_IFINDEX, iface) < 0)
        return nullptr;
    return message;
}

void ask(nl_sock* socket, unsigned int iface, Search& search) {
    const int family = genl_ctrl_resolve(socket, NL80211_GENL_NAME);
    const Message request = family < 0 ? nullptr : stationsOf(iface, family);
    if (!request)
        return;
    nl_socket_modify_cb(socket, NL_CB_VALID, NL_CB_CUSTOM, onStation, &search);
    if (nl_send_auto(socket, request.get()) >= 0)
        nl_recvmsgs_default(socket);
}

// An Ethernet interface has no stations, and without Wi-Fi the kernel would look for a module that knows the question.
bool isWireless(const std::string& iface) {
    return access(("/sys/class/net/" + iface + "/phy80211").c_str(), F_OK) == 0;
}

} // namespace

std::optional<int> connectedSeconds(const std::string& iface, const std::string& bssid) {
    Search search;
    if (!isWireless(iface))
        return std::nullopt;
    const unsigned int index = if_nametoindex(iface.c_str());
    if (index == 0 || !ether_aton_r(bssid.c_str(), &search.bssid))
        return std::nullopt;
    const Socket socket(nl_socket_alloc());
    if (socket && genl_connect(socket.get()) == 0)
        ask(socket.get(), index, search);
    return search.seconds;
}

} // namespace cli
