#pragma once

#include <string>

namespace test {

/// What the client lists: "home" with the id 0 and "work" with the id 3.
inline const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n";

/// Its reply to status: connected with "home".
inline const std::string AT_HOME = "bssid=02:00:00:00:01:00\nssid=home\nwpa_state=COMPLETED\n";

} // namespace test
