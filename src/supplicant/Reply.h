#pragma once

#include "model/WifiTypes.h"

namespace platwifi {

/// Whether the first line of a reply says that the command was carried out. The client exits with
/// status 0 after a refusal too, so its exit status says nothing about that.
bool isAccepted(const char* line);

/// Cuts the text at its last double quote and drops its first character, whatever that is: a quoted
/// value loses both quotes. A text without a double quote stays.
void stripQuotes(char* text);

/// The state that a line names, whatever else it holds; WPA_STATE_UNKNOWN for none.
WpaState stateIn(const char* line);

/// The supplicant's state as the lines of a status reply tell it: the first line that holds
/// "wpa_state=" decides. Null entries are passed over.
WpaState stateOf(const char* const lines[], unsigned int count);

} // namespace platwifi
