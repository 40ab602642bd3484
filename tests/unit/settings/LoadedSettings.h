#pragma once

#include "settings/WifiHostSettings.h"

#include "support/StandIn.h"

#include <string>
#include <vector>

namespace test {

using Commands = std::vector<std::string>;

/// Settings that were loaded from a scripted client, and what they run from then on. In a program
/// that is linked with this the refresh thread is quick, and no client is killed.
class LoadedSettings {
public:
    LoadedSettings() = default;
    ~LoadedSettings();

    LoadedSettings(const LoadedSettings&) = delete;
    LoadedSettings& operator=(const LoadedSettings&) = delete;

    /// Loads the networks of the first adapter, wlan0. The client has no rules afterwards.
    /// @param networks  lines of list_networks behind its header
    /// @param status    what status prints
    WifiHostSettings& load(const std::string& networks,
                           const std::string& status = "wpa_state=INACTIVE\n");

    /// Makes the client ready for a load like that.
    void scriptLoad(const std::string& networks,
                    const std::string& status = "wpa_state=INACTIVE\n");

    /// An instance that found no adapter.
    WifiHostSettings& fail();

    /// Every command without a rule of its own is answered with this.
    void answer(const std::string& reply, int status = 0);

    /// What was run since load() or fail(), each command without the program, joined by blanks.
    Commands commands() const;

    StandIn standIn;
    std::string adapters = "wlan0\n"; ///< what load() makes the client list

private:
    WifiHostSettings& make();
};

/// The status of a network, taken under the lock; NETWORK_STATUS_UNKNOWN when it is not there.
unsigned int statusOf(WifiHostSettings& settings, const char* ssid);

/// The SSIDs in memory, the first of the list first.
std::vector<std::string> ssidsOf(WifiHostSettings& settings);

} // namespace test
