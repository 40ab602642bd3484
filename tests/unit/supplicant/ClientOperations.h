#pragma once

#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "support/StandIn.h"

#include <string>
#include <vector>

namespace test {

constexpr const char* CLIENT = "/proc/boot/wpa_cli";
inline const std::string STAMP = "12:34:56.789: ";

enum class Success { BY_REPLY, BY_EXIT_STATUS };

/// An operation of the driver that runs one command for one network, or creates one.
struct Command {
    const char* name;
    Arguments call; ///< behind the interface option; for network 7
    const char* resultPrefix;
    Success success;
    bool (*run)(WifiUtil& util, const char* iface);
    const char* accepted = "OK"; ///< a reply that is no refusal
};

/// An operation of the driver that returns the lines of a reply.
struct Query {
    const char* name;
    Arguments call; ///< on wlan0
    int headerLines;
    bool resetsCount;
    bool removesStamp;
    const char* resultPrefix;
    bool (*run)(WifiUtil& util, const char* iface, char** lines, unsigned char max,
                unsigned char* count);
};

extern const std::vector<Command> COMMANDS;
extern const std::vector<Query> QUERIES;

} // namespace test
