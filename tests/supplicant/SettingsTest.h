#pragma once

#include "Records.h"
#include "Supplicant.h"
#include "settings/WifiHostSettings.h"
#include "support/Leftovers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace test {

constexpr const char* WLAN = "wlan0";

/// A test of the settings against the host's supplicant. One supplicant and one instance serve all
/// tests, since starting the one and ending the other takes most of their time; each begins with a
/// configuration file of its own.
class SettingsTest : public testing::Test {
protected:
    Supplicant& supplicant = sharedSupplicant();

    // No scan is started, so that no file may stay.
    void TearDown() override { EXPECT_THAT(resultFiles(), testing::IsEmpty()); }

    /// Makes the supplicant read these networks, waits until its status holds this line, and loads.
    void load(const std::string& networks, const std::string& status = "wpa_state=COMPLETED");

    static WifiHostSettings& settings() { return *WifiHostSettings::getInstance(nullptr); }

    static Lines loadedSsids() { return ssidsOf(loadedRecords(settings())); }

    /// A field of the network in memory, in words.
    static std::string loaded(const std::string& ssid, const std::string& field);

    static void expectAllAsConfigured() {
        EXPECT_THAT(differences(loadedRecords(settings()), expectedRecords()), testing::IsEmpty());
    }

    /// The SSIDs that the supplicant has, in its order.
    Lines configuredSsids() const;

private:
    static Supplicant& sharedSupplicant();
};

} // namespace test
