#pragma once

#include "HostCommand.h"

#include <map>
#include <string>
#include <vector>

class WifiHostSettings;

namespace test {

/// One network: the value of each field as a text, by the client's key, or by a word of the tests.
using Record = std::map<std::string, std::string>;
using Records = std::vector<Record>;

/// The networks in memory, from the head of their list.
Records loadedRecords(WifiHostSettings& settings);

/// The networks that must be in memory, computed from what the host's own client prints about wlan0.
Records expectedRecords();

/// The differences, one a line.
Lines differences(const Records& loaded, const Records& expected);

/// The SSIDs of the networks, in their order.
Lines ssidsOf(const Records& records);

// A value as a text.

std::string inWords(const char* text); ///< null is "not set"
std::string inWords(unsigned int number);

} // namespace test
