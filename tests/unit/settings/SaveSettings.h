#pragma once

#include "LoadedSettings.h"

#include "model/WifiNetwork.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace test {

using Calls = std::vector<Arguments>;

/// What the watchdog does while it is replaced: nothing but this.
struct FakeWatchdog {
    /// Replaces it for as long as the object lives.
    struct Use {
        Use();
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
    };

    static bool isUsed;
    static bool works;                          ///< whether it can be initialised
    static int signals;                         ///< how many save signals were sent
    static std::function<void()> atEverySignal; ///< may be empty
};

/// Saves the settings, with a scripted client.
class SaveSettings : public testing::Test {
protected:
    static Arguments call(const std::string& iface, const Arguments& command);
    static Arguments wlan0(const Arguments& command) { return call("wlan0", command); }

    /// The end of a save that goes well.
    static const Arguments SAVE;
    static const Arguments REREAD;

    SaveSettings();

    /// Loads these networks, numbered from 0. The client accepts all from then on.
    void load(const std::vector<std::string>& ssids, const std::string& adapters = "wlan0\n");

    /// Forgets the script and the calls; the client accepts all.
    void acceptAll();

    /// Scripts what the supplicant has; before acceptAll() or in place of it.
    void scriptList(const std::vector<std::string>& ssids);

    WifiNetwork& network(const std::string& ssid);

    /// Saves and tells the result; the locks are free again afterwards.
    int save();

    /// The commands of a save that must have this result.
    Calls saveGiving(int result);

    const FakeWatchdog::Use noWatchdog; // until the settings have ended
    LoadedSettings loaded;
    StandIn& standIn = loaded.standIn;
    WifiHostSettings* settings = nullptr;
};

} // namespace test
