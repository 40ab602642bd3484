#pragma once

#include "HostCommand.h"

#include <string>

namespace test {

/// Records the library's commands and passes them on to the host's client, during its lifetime. A test's
/// own commands go to the client directly and are not recorded.
class WatchedClient {
public:
    /// @param before  a shell script that runs before each command, whose arguments are in "$@"
    explicit WatchedClient(const std::string& before = ":");
    ~WatchedClient();

    WatchedClient(const WatchedClient&) = delete;
    WatchedClient& operator=(const WatchedClient&) = delete;

    /// The arguments of each command so far, one line a command.
    Lines commands() const;
};

} // namespace test
