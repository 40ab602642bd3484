#pragma once

#include "settings/replies/WholeLines.h"

class WifiNetwork;

namespace platwifi {

/// The radio channel of a frequency in MHz, given as text. Channels 1 to 11 are known; anything else
/// counts as channel 6.
unsigned int channelAt(const char* frequency);

/// The strength, 0 to 100, that a signal field stands for: 160 is 0, 210 and above is 100. What lies
/// below 160 is 100 as well, levels in dBm included, which are negative.
unsigned int strengthOf(const char* signal);

/// Reads BSSID, channel, strength and mode from a line of the scan, which separates them by tabs, as
/// far as the line goes.
void readScanLine(const char* line, WifiNetwork& network);

/// Whether a line of the scan tells of the network with this SSID.
using ScanMatch = bool (*)(const char* line, const char* ssid);

/// The match while loading: the line is the SSID and nothing else.
bool isWholeLine(const char* line, const char* ssid);

/// The match of a status refresh: the SSID stands anywhere in the line, deliberately also as a part of
/// a longer one.
bool isInLine(const char* line, const char* ssid);

/// Reads every line into every network that it matches, from `head` on. The caller holds the lock of
/// the list.
void mergeScan(const Lines& lines, WifiNetwork* head, ScanMatch matches);

} // namespace platwifi
