#pragma once

#include <string>

struct in6_addr;

namespace cli {

/// An IPv6 address of an interface that reaches beyond its link, the same one while the interface keeps its addresses;
/// "" for none.
std::string globalIpv6(const std::string& iface);

/// Whether an address is neither of this host nor of its link alone.
bool isGlobal(const in6_addr& address);

} // namespace cli
