#pragma once

#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"

#include "support/LoadedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

/// Commands without the program, their words joined by blanks: "-iwlan0 status".
using Commands = std::vector<std::string>;

inline const std::string LIST_NETWORKS = "-iwlan0 list_networks";
inline const std::string SCAN_RESULTS = "-iwlan0 scan_results";

/// Settings that are loaded from a scripted client, the commands that they run, and their state.
/// Everything is unloaded at the end. In a program that is linked with this the refresh thread is
/// quick, and no client is killed.
class LoadedSettings {
public:
    /// Loads nothing. The driver has asked the client whether it prints stamps, so that all commands
    /// are those of the settings.
    LoadedSettings();
    ~LoadedSettings();

    LoadedSettings(const LoadedSettings&) = delete;
    LoadedSettings& operator=(const LoadedSettings&) = delete;

    // What the client answers.

    /// A value of a network in all loads from the next scriptLoad() or load() on. Other values are
    /// not set.
    void value(const std::string& id, const std::string& key, const std::string& text);

    /// Replaces the script by one for a load: lines of list_networks, status and scan_results,
    /// without headers.
    void scriptLoad(const std::string& networks, const std::string& status = "wpa_state=INACTIVE\n",
                    const std::string& scan = "");

    /// Every command without a rule of its own is answered with this.
    void answer(const std::string& reply, int status = 0);

    /// Replaces the script: the client accepts every command.
    void acceptAll();

    /// Replaces the script: the client lists these networks and accepts every command.
    void list(const std::string& networks, int status = 0);

    // Loads and operations.

    /// A fresh load with such a script. The client has no rules and no calls afterwards.
    WifiHostSettings& load(const std::string& networks,
                           const std::string& status = "wpa_state=INACTIVE\n",
                           const std::string& scan = "");

    /// A fresh load of what the client answers now.
    static WifiHostSettings& reload();

    /// Discards everything and loads it again as load() does, but in the loaded instance.
    void refreshAll(const std::string& networks, const std::string& status = "wpa_state=INACTIVE\n",
                    const std::string& scan = "");

    /// A load that found no adapter.
    WifiHostSettings& fail();

    /// The instance, which is loaded if it is not.
    static WifiHostSettings& settings() { return *WifiHostSettings::getInstance(nullptr); }

    /// What was run since load() or fail().
    Commands commands() const;

    /// What `work` runs.
    template <typename Work>
    Commands commandsOf(const Work& work) const {
        const auto before = static_cast<std::ptrdiff_t>(commands().size());
        work();
        const Commands all = commands();
        return {all.begin() + before, all.end()};
    }

    // The state. What needs an answer of the client for it gets it from another client: script and
    // calls stay as they are.

    /// The network with this SSID, or null. The pointer is valid while nothing else unloads it.
    static WifiNetwork* network(const std::string& ssid);

    /// The status of a network; NETWORK_STATUS_UNKNOWN when it is not there.
    static unsigned int statusOf(const std::string& ssid);
    static void setStatus(const std::string& ssid, unsigned int status);

    /// The SSIDs in memory, the first of the list first.
    static std::vector<std::string> ssids();

    /// The current network. setCurrent() enables the one before, unless it is disabled.
    static const WifiNetwork* currentNetwork();
    static std::string current(); ///< its SSID; "none" without one
    static void setCurrent(const std::string& ssid);
    static void setNoCurrent() { setCurrent(""); }

    /// The supplicant's state in memory, as the dump shows it. A refresh of the status that is due
    /// fails and counts as done.
    static WpaState state();

    /// Sets it by a status with this word of the supplicant, which also changes the status of the
    /// current network.
    static void setState(const std::string& word);

    static std::string dump();

    /// Hangs where a lock is held.
    static void expectNoLockHeld();

    LoadedHost standIn;
    std::string& adapters = standIn.adapters; ///< lines of adapters; a load uses wlan0

private:
    std::vector<Arguments> m_values; ///< id, key and value of each
};

/// The base of tests of loaded settings.
class SettingsTest : public testing::Test, protected LoadedSettings {};

/// The SSIDs in memory, the first of the list first.
std::vector<std::string> ssidsOf(WifiHostSettings& settings);

} // namespace test
