#pragma once

#include "support/StandIn.h"

#include <string>
#include <vector>

namespace test {

inline const std::string ADAPTER_HEADER = "Selected interface 'wlan0'\nAvailable interfaces:\n";
inline const std::string LIST_HEADER = "network id / ssid / bssid / flags\n";
inline const std::string SCAN_HEADER = "bssid / frequency / signal level / flags / ssid\n";

/// A scripted supplicant on which a load of the settings succeeds. Rules that a test adds before
/// answers() or answersLoad() come first.
class LoadedHost : public StandIn {
public:
    /// Answers all queries of a load: these networks with the ids 0, 1, ... and no values, an empty
    /// scan, `state` as the supplicant's state.
    void answers(const std::vector<std::string>& ssids, const std::string& state = "INACTIVE") {
        answersLoad(linesOf(ssids), "wpa_state=" + state + "\n");
    }

    /// The same with these lines, which follow the headers.
    void answersLoad(const std::string& list, const std::string& status,
                     const std::string& scan = "") {
        on({"interface"}).prints(ADAPTER_HEADER + adapters);
        on({"-iwlan0", "list_networks"}).prints(LIST_HEADER + list);
        on({"-iwlan0", "scan_results"}).prints(SCAN_HEADER + scan);
        on({"-iwlan0", "status"}).prints(status);
        on({"*"}).prints("FAIL\n"); // no network has a value for any key
    }

    /// What the client prints for these networks.
    static std::string listed(const std::vector<std::string>& ssids) {
        return LIST_HEADER + linesOf(ssids);
    }

    /// The same without the header.
    static std::string linesOf(const std::vector<std::string>& ssids) {
        std::string lines;
        for (std::size_t i = 0; i < ssids.size(); ++i)
            lines += std::to_string(i) + "\t" + ssids[i] + "\tany\t\n";
        return lines;
    }

    /// How often the client was called with exactly these arguments.
    std::size_t callsOf(const Arguments& arguments) const {
        std::size_t found = 0;
        for (const Arguments& call : calls())
            found += Arguments(call.begin() + 1, call.end()) == arguments ? 1U : 0U;
        return found;
    }

    std::string adapters = "wlan0\n"; ///< the lines of the interfaces
};

} // namespace test
