#pragma once

namespace platwifi {

/// Whether the first line of a reply says that the command was carried out. The client exits with
/// status 0 after a refusal too, so its exit status says nothing about that.
bool isAccepted(const char* line);

/// Cuts the text at its last double quote and drops its first character, whatever that is: a quoted
/// value loses both quotes. A text without a double quote stays.
void stripQuotes(char* text);

} // namespace platwifi
