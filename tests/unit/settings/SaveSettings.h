#pragma once

#include "LoadedSettings.h"
#include "SaveSignals.h"

namespace test {

/// The end of a save that succeeds.
inline const std::string SAVE = "-iwlan0 save_config";
inline const std::string REREAD = "-iwlan0 reconfigure";

/// Saves of the settings, and the signals after them.
class SaveSettings : public SettingsTest {
protected:
    SaveSettings() { SaveSignals::reset(); }

    /// Loads these networks, with the ids 0, 1, ... The client accepts every command afterwards.
    void load(const std::vector<std::string>& ssids) {
        LoadedSettings::load(LoadedHost::linesOf(ssids));
        acceptAll();
    }

    /// Replaces the script: the client lists these networks.
    void list(const std::vector<std::string>& ssids) {
        LoadedSettings::list(LoadedHost::linesOf(ssids));
    }

    /// Replaces the script: the client answers this command with `reply`, and accepts all others.
    void answerTo(const Arguments& command, const std::string& reply) {
        standIn.reset();
        standIn.on(command).prints(reply);
        answer("OK\n");
    }

    /// The commands of a save that must have this result. Expects that it leaves no lock held.
    Commands saveGiving(int result) const {
        return commandsOf([result] {
            EXPECT_EQ(settings().saveNetworkSettings(), result);
            expectNoLockHeld();
        });
    }

    static std::string priority(const std::string& id, const std::string& value) {
        return "-iwlan0 set_network " + id + " priority " + value;
    }
};

} // namespace test
