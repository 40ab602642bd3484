#pragma once

#include "HostCommand.h"

#include <string>

namespace test {

/// Stands between the library and the host's client as long as it lives, and writes down the
/// commands. Only the library's: what a test asks goes to the client directly.
class WatchedClient {
public:
    /// @param before  what a shell does before each command, whose arguments are in "$@"
    explicit WatchedClient(const std::string& before = ":");
    ~WatchedClient();

    WatchedClient(const WatchedClient&) = delete;
    WatchedClient& operator=(const WatchedClient&) = delete;

    /// The arguments of each command so far, a line each.
    Lines commands() const;
};

} // namespace test
