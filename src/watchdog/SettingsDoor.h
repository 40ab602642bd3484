#pragma once

namespace platwifi {

/// The one way from the refresh thread back into the settings, which own it: reloads them, having made
/// them first where there are none. A reload that fails destroys the watchdog of the settings.
///
/// Waits for the settings for a second at most, since the thread that uses them may be waiting for the
/// refresh thread to end.
/// @return false when the settings were in use all the time; to be asked again
bool refreshSettings() noexcept;

} // namespace platwifi
