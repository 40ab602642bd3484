#pragma once

#include "settings/replies/WholeLines.h"

class WifiNetwork;

namespace platwifi {

/// The radio channel of a frequency in MHz, given as text. Under the profile `device` 1 to 11, and 6 for any other
/// frequency. Under `modern` that of IEEE 802.11 in the bands of 2.4, 5 and 6 GHz, and 0 for any other frequency.
unsigned int channelAt(const char* frequency);

/// The strength, 0 to 100, of a signal, given as text. Under the profile `device` 160 is 0, 210 and above is
/// 100; a signal below 160 is 100, too, so every level in dBm, which is negative, gives 100. Under `modern` the
/// signal is in dBm: -100 and below is 0, -50 and above is 100.
unsigned int strengthOf(const char* signal);

/// Reads BSSID, channel, strength and mode from a line of the scan. What a shorter line does not have stays.
void readScanLine(const char* line, WifiNetwork& network);

/// Whether a line of the scan updates the network with this SSID.
using ScanMatch = bool (*)(const char* line, const char* ssid);

/// The match of a load: the line is the SSID and nothing else.
bool isWholeLine(const char* line, const char* ssid);

/// The match of a status refresh: the SSID stands anywhere in the line, also as a part of a longer SSID.
bool isInLine(const char* line, const char* ssid);

/// Reads every line into every network that it matches, from `head` on. The caller holds the lock of
/// the list.
///
/// Under the profile `modern` `matches` plays no part: a network gets channel and strength of the line that has
/// its SSID and the strongest signal. That is no edit. BSSID and mode stay what is configured.
void mergeScan(const Lines& lines, WifiNetwork* head, ScanMatch matches);

} // namespace platwifi
