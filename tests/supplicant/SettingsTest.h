#pragma once

#include "Records.h"
#include "SharedSupplicant.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "support/Leftovers.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace test {

/// A test of the settings against the shared supplicant. The settings stay loaded from test to test,
/// because unloading them takes long. Each test begins with its own configuration file.
class SettingsTest : public testing::Test {
protected:
    Supplicant& supplicant = sharedSupplicant();

    // Only a scan leaves a file, and no test starts one.
    void TearDown() override { EXPECT_THAT(resultFiles(), testing::IsEmpty()); }

    /// Makes the supplicant read these networks, waits until its status contains this line, and loads.
    /// An empty line is not waited for.
    void load(const std::string& networks, const std::string& status = "wpa_state=COMPLETED");

    static WifiHostSettings& settings() { return *WifiHostSettings::getInstance(nullptr); }

    /// Changes a network in memory. Expects that `edit` returns true.
    static void change(const std::string& ssid, const std::function<bool(WifiNetwork&)>& edit);
    static void changePriority(const std::string& ssid, unsigned int priority);

    /// Adds a network without keys. The supplicant does not save one that lacks the key that it needs.
    static void addOpen(const std::string& ssid);

    static Lines loadedSsids() { return ssidsOf(loadedRecords(settings())); }

    /// A field of the network in memory, as Record has it.
    static std::string loaded(const std::string& ssid, const std::string& field);

    static void expectAllAsConfigured() {
        EXPECT_THAT(differences(loadedRecords(settings()), expectedRecords()), testing::IsEmpty());
    }

    /// The SSIDs that the supplicant has, in its order.
    Lines configuredSsids() const;
};

} // namespace test
