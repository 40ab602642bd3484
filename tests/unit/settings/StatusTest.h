#pragma once

#include "LoadedSettings.h"

#include "support/TestTime.h"

namespace test {

/// Refreshes of the status, which are due when the clock has moved on.
class StatusTest : public SettingsTest {
protected:
    StatusTest() { time.clockIs(1000000); }

    /// The networks "home", with the id 0, and "work", 1. "work" is the first in memory. The client
    /// has no rules afterwards.
    void loadBoth() { load(LoadedHost::linesOf({"home", "work"})); }

    /// Refreshes when it is due, with these replies of the client.
    bool refresh(const std::string& networks, const std::string& scan = "") {
        scriptLoad(networks, "", scan);
        return refreshLater();
    }

    /// Refreshes when it is due, with the script as it is.
    bool refreshLater() {
        time.advance(std::chrono::seconds(5));
        return settings().refreshDatabaseNetworksStatus();
    }

    TestTime time; ///< its clock stands still
};

} // namespace test
