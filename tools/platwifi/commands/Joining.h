#pragma once

#include "host/Host.h"

#include <chrono>
#include <string>

namespace cli {

/// A connection that stands.
struct Joined {
    std::string iface;
    std::string ssid;
    std::string security; ///< in words; "" for a network that was configured before
    bool isSaved;         ///< by this operation
    std::chrono::steady_clock::duration time;
};

/// Joins the network of the request in one step: looks what is in range, takes the best security, asks for what is
/// missing, and connects. Only a network that was connected to is saved; a failure leaves everything as before.
/// @throws ConnectionFailure if the connection fails
/// @throws Failure, WrongUse, Interrupted
Joined join(Context& context);

} // namespace cli
