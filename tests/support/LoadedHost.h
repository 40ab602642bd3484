#pragma once

#include "support/StandIn.h"

#include <string>
#include <vector>

namespace test {

/// A scripted supplicant with the adapter wlan0, on which a load of the settings succeeds. Rules
/// that a test adds before answers() come first.
class LoadedHost : public StandIn {
public:
    /// Answers all queries of a load: these networks with the ids 0, 1, ... and no values, an empty
    /// scan, `state` as the supplicant's state.
    void answers(const std::vector<std::string>& ssids, const std::string& state = "INACTIVE") {
        on({"interface"}).prints("Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n");
        on({"-iwlan0", "list_networks"}).prints(listed(ssids));
        on({"-iwlan0", "scan_results"}).prints("bssid / frequency / signal level / flags / ssid\n");
        on({"-iwlan0", "status"}).prints("wpa_state=" + state + "\n");
        on({"*"}).prints("FAIL\n");
    }

    /// What the client prints for these networks.
    static std::string listed(const std::vector<std::string>& ssids) {
        std::string text = "network id / ssid / bssid / flags\n";
        for (std::size_t i = 0; i < ssids.size(); ++i)
            text += std::to_string(i) + "\t" + ssids[i] + "\tany\t\n";
        return text;
    }

    /// How often the client was called with exactly these arguments.
    std::size_t callsOf(const Arguments& arguments) const {
        std::size_t found = 0;
        for (const Arguments& call : calls())
            found += Arguments(call.begin() + 1, call.end()) == arguments ? 1U : 0U;
        return found;
    }
};

} // namespace test
