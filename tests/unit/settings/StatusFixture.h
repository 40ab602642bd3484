#pragma once

#include "LoadFixture.h"

#include "support/TestTime.h"

namespace test {

/// Settings with the networks "home", number 0, and "work", number 1, behind it in the list of the
/// supplicant and before it in memory. None of them is the current one.
class StatusFixture : public LoadFixture {
protected:
    StatusFixture() { time.clockIs(1000000); }

    static WifiHostSettings& settings() { return *WifiHostSettings::getInstance(nullptr); }

    /// Loads them; the client has no replies afterwards.
    void loadBoth() { load("0\thome\tany\t\n1\twork\tany\t\n"); }

    static WifiNetwork* record(const char* ssid) { return settings().getNetwork("wlan0", ssid); }

    static void setStatus(const char* ssid, unsigned int status) {
        record(ssid)->setNetworkStatus(status);
    }

    /// @param ssid  of the new current network; null for none
    static void setCurrent(const char* ssid) {
        settings().*memberOf(CurrentNetwork{}) = ssid ? record(ssid) : nullptr;
    }

    static void setState(WpaState state) { settings().*memberOf(SupplicantState{}) = state; }

    /// The client's replies from now on.
    void replies(const std::string& list, const std::string& status = "",
                 const std::string& scan = "") {
        standIn.reset();
        script(list, status, scan);
    }

    /// A refresh of the status when it is due, with these replies.
    bool refresh(const std::string& list, const std::string& scan = "") {
        replies(list, "", scan);
        return refreshLater();
    }

    /// The same with the replies there are.
    bool refreshLater() {
        time.advance(std::chrono::seconds(5));
        return settings().refreshDatabaseNetworksStatus();
    }

    TestTime time; ///< its clock stands still
};

} // namespace test
