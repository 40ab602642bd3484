#pragma once

#include "host/Host.h"

#include <string>
#include <vector>

namespace cli::api {

// The operations of the Java API. An SSID is its bytes, and names exactly that network. Each throws
// ConnectionFailure, Failure, WrongUse or Interrupted. Any thread may call any of them at any time; only one at
// a time may change networks (edit, joinNetwork, connectNetwork).

/// What a block of edits does to one network.
struct Step {
    /// Its name in Java is this one with a small letter.
    enum class Kind { ADD, CHANGE, REMOVE };

    Kind kind;
    std::string ssid;
    std::vector<std::string> assignments; ///< "NAME=VALUE" each
};

/// The access points in range, strongest first, a record each.
std::vector<Record> scan(Context& context);

/// The configured networks, the last one added first: the value of each property, "(set)" for a secret.
std::vector<Record> networks(Context& context);

/// What the supplicant does, and the connection, if there is one.
Record link(Context& context);

/// Makes all steps and saves them. A failure leaves the supplicant, its file and the memory of this process without
/// any of them; the memory also loses other changes that were not saved.
void edit(Context& context, const std::vector<Step>& steps);

// Both return the record of link(), and the security and the time as further members.

/// Joins the network of the request in one step: see cli::join().
Record joinNetwork(Context& context);

/// Connects to the configured network of the request.
Record connectNetwork(Context& context);

/// Ends the connection, and any attempt to connect.
void disconnect(Context& context);

/// Enables all networks, and makes the supplicant choose among them.
void roam(Context& context);

} // namespace cli::api
