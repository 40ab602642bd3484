#pragma once

#include "model/WifiTypes.h"

namespace platwifi {

/// Whether the supplicant carried out the command, by the first line of the reply. The client's
/// exit status does not show it: it is 0 after a refusal too.
bool isAccepted(const char* line);

/// Cuts the text at its last double quote and removes its first character, whatever that is: a
/// quoted value loses both quotes. A text without a double quote is left as it is.
void stripQuotes(char* text);

/// The state whose name is found anywhere in the line; WPA_STATE_UNKNOWN when none is.
WpaState stateIn(const char* line);

/// The supplicant's state in the lines of a status reply: that of the first line that contains
/// "wpa_state=". Null entries are skipped.
WpaState stateOf(const char* const lines[], unsigned int count);

} // namespace platwifi
