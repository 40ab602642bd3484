#include "host/Addresses.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <memory>
#include <netinet/in.h>

namespace cli {
namespace {

struct Free {
    void operator()(ifaddrs* list) const { freeifaddrs(list); }
};

// The address, if it is one of IPv6.
const in6_addr* ipv6Of(const ifaddrs& entry) {
    if (!entry.ifa_addr || entry.ifa_addr->sa_family != AF_INET6)
        return nullptr;
    return &reinterpret_cast<const sockaddr_in6*>(entry.ifa_addr)->sin6_addr;
}

std::string textOf(const in6_addr& address) {
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(AF_INET6, &address, text, sizeof text) ? text : "";
}

} // namespace

bool isGlobal(const in6_addr& address) {
    return !IN6_IS_ADDR_LINKLOCAL(&address) && !IN6_IS_ADDR_LOOPBACK(&address) &&
           !IN6_IS_ADDR_UNSPECIFIED(&address) && !IN6_IS_ADDR_MULTICAST(&address);
}

std::string globalIpv6(const std::string& iface) {
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0)
        return "";
    const std::unique_ptr<ifaddrs, Free> owner(list);
    for (const ifaddrs* entry = list; entry; entry = entry->ifa_next) {
        const in6_addr* const address = ipv6Of(*entry);
        if (address && isGlobal(*address) && iface == entry->ifa_name)
            return textOf(*address);
    }
    return "";
}

} // namespace cli
