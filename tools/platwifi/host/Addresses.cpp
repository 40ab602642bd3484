#include "host/Addresses.h"

#include <arpa/inet.h>
#include <fstream>
#include <netinet/in.h>
#include <sstream>

namespace cli {
namespace {

// A line an address: 32 hexadecimal digits, index, length of the prefix, scope, flags, interface. The system's
// functions would ask for all interfaces and the addresses of both kinds.
constexpr const char* ADDRESSES = "/proc/net/if_inet6";

// False where the text is no address of 32 digits.
bool readDigits(const std::string& digits, in6_addr& address) {
    std::string groups;
    for (std::size_t i = 0; i < digits.size(); i += 4)
        groups += (i == 0 ? "" : ":") + digits.substr(i, 4);
    return inet_pton(AF_INET6, groups.c_str(), &address) == 1;
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
    std::ifstream file(ADDRESSES);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string digits;
        std::string index;
        std::string prefix;
        std::string scope;
        std::string flags;
        std::string name;
        in6_addr address{};
        if (words >> digits >> index >> prefix >> scope >> flags >> name && name == iface &&
            readDigits(digits, address) && isGlobal(address))
            return textOf(address);
    }
    return "";
}

} // namespace cli
