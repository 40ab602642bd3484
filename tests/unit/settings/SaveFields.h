#pragma once

#include "settings/SavedFields.h"

#include "supplicant/WifiUtil.h"
#include "support/StandIn.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

using Calls = std::vector<Arguments>;

/// Saves the dirty fields of one network, whose number is 7, with a scripted client.
class SaveFields : public testing::Test {
protected:
    static Arguments setNetwork(const std::string& key, const std::string& value) {
        return {"/proc/boot/wpa_cli", "-iwlan0", "set_network", "7", key, value};
    }

    static Arguments bssidCommand(const std::string& value) {
        return {"/proc/boot/wpa_cli", "-iwlan0", "bssid", "7", value};
    }

    static std::string inQuotes(const std::string& text) { return '"' + text + '"'; }

    SaveFields() { network.setNetworkId(7); }

    /// The commands that a save makes.
    Calls save(const std::string& reply = "OK\n", const char* iface = "wlan0") {
        standIn.reset();
        standIn.on({"*"}).prints(reply);
        platwifi::saveDirtyFields(util, iface, network);
        return standIn.calls();
    }

    /// The commands of a save after an edit that is the only one.
    template <typename Edit>
    Calls saveAfter(const Edit& edit) {
        network.cleanDirtyFields();
        edit(network);
        return save();
    }

    std::vector<std::string> dirty() const { return dirtyOf(network); }

    StandIn standIn;
    WifiUtil util;
    WifiNetwork network;
};

} // namespace test
