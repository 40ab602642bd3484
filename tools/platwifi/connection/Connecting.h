#pragma once

#include "connection/Diagnosis.h"
#include "host/Host.h"
#include "model/WifiTypes.h"

#include <chrono>
#include <string>

namespace cli {

/// A connection does not come to stand. The message is one line: network, cause, next step.
struct ConnectionFailure : Failure {
    /// @param network    as the library has it
    /// @param lastState  that the supplicant reported
    ConnectionFailure(const Diagnosis& diagnosis, std::string network, WpaState lastState);

    Cause cause;
    std::string found; ///< what is wrong
    std::string ssid;  ///< as the library has it
    WpaState state;    ///< the last that the supplicant reported
};

/// Connects to a configured network, and waits until the connection stands. On standard output it shows the
/// states meanwhile, in one line that it ends; nothing with --json. When it returns or throws, the networks that
/// were enabled before are enabled again; when it throws, the supplicant chooses among them and this one.
/// @param ssid  the network, as the library has it
/// @return how long it took
/// @throws ConnectionFailure if the connection fails, or does not stand after the timeout of the request
/// @throws Failure if the supplicant cannot be reached
/// @throws Interrupted
std::chrono::steady_clock::duration connectAndWait(Context& context, Host& host,
                                                   const std::string& ssid);

/// A time in seconds for a message, such as "0.2".
std::string secondsText(std::chrono::steady_clock::duration time);

/// What --json prints for a connection that stands: "ssid", "state" and "cause", which is null.
Record connectedRecord(const std::string& ssid);

/// What --json prints for one that fails: "ssid", "state", "cause" and "message".
Record failureRecord(const ConnectionFailure& failure);

} // namespace cli
