#pragma once

#include "Clients.h"

namespace test {

/// Every command that the library and the command line send, with right, wrong and odd arguments, and every field of
/// a network with odd values. In an order in which each answer depends on the earlier lines alone, and not on time.
/// To be answered by a supplicant with two networks.
std::vector<CommandLine> everyCommandLine();

} // namespace test
