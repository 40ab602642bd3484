#pragma once

#include "support/BlockedFile.h"
#include "support/StandIn.h"
#include "support/UseProfile.h"

#include "settings/WifiHostSettings.h"

#include <string>
#include <vector>

namespace test {

/// Settings that are loaded from a scripted client under one profile. They have no refresh thread.
class ProfiledHost {
public:
    explicit ProfiledHost(platwifi::Profile profile) : m_use(profile) {}
    ~ProfiledHost();

    ProfiledHost(const ProfiledHost&) = delete;
    ProfiledHost& operator=(const ProfiledHost&) = delete;

    /// Adds a network, with the next id. `printed` is the SSID as the client prints it.
    void has(const std::string& printed, const std::string& flags = "",
             const std::string& bssid = "any");

    /// The reply to one command of the client for the interface wlan0, before all other rules.
    StandIn::Answer on(std::vector<std::string> command);

    /// Loads these networks. Without a rule of its own, each command is answered with "OK".
    WifiHostSettings& load();

    /// The commands since the last call of this function that change something, joined by blanks.
    std::vector<std::string> changes();

    WifiNetwork& network(const std::string& ssid);

    StandIn standIn;
    std::string adapters = "wlan0\n";
    std::string scan;
    std::string status = "wpa_state=INACTIVE\n";

private:
    std::string list() const;

    const UseProfile m_use;
    const BlockedFile m_noRefreshThread{"/dev/shm/wifi_shmem"};
    std::vector<std::string> m_lines;
    std::size_t m_seen = 0;
};

/// The SSIDs in memory.
std::vector<std::string> ssidsIn(WifiHostSettings& settings);

} // namespace test
