#pragma once

#include "HostCommand.h"

#include <map>
#include <string>
#include <vector>

class WifiHostSettings;

namespace test {

/// One network, field by field: what the field is called, and its value in words.
using Record = std::map<std::string, std::string>;
using Records = std::vector<Record>;

/// The networks in memory, from the head of their list.
Records loadedRecords(WifiHostSettings& settings);

/// The networks that must be in memory, by what the host's own client answers now about wlan0.
Records expectedRecords();

/// What is different, a line each.
Lines differences(const Records& loaded, const Records& expected);

/// The SSIDs of the networks, in their order.
Lines ssidsOf(const Records& records);

// How a value is put into words.

std::string inWords(const char* text); ///< null is "not set"
std::string inWords(unsigned int number);

} // namespace test
