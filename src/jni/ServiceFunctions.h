#pragma once

#include "Export.h"
#include "platform/BufferedXWriter.h"
#include "platform/ErrorHandler.h"
#include "platwifi.h"

/// The operations of the library for native callers in C++: those of platwifi.h, and the function that has
/// parameters which C cannot name. What platwifi.h says of all functions holds for it, too.
extern "C" {

/// Writes the state as an XML document: see WifiHostSettings::getWifiHostSettingsXML().
/// @param out     the document is appended to it; stays the caller's
/// @param errors  receives an error for each secret that cannot be enciphered
/// @param full    true for every network with its security; false for SSID, strength and status only
/// @return 1, also if the document could not be written; 0 for a null `out`
PLATWIFI_API int getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors,
                                        bool full) noexcept;
}
