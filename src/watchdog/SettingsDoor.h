#pragma once

namespace platwifi {

/// The one way from the refresh thread back into the settings, which own it: reloads them, having made
/// them first where there are none. A reload that fails destroys the watchdog of the settings.
///
/// Never waits for a lock, since whoever holds it may be waiting for the refresh thread to end.
/// @return false when the settings are being made, ended or used right now; to be asked again
bool refreshSettings() noexcept;

} // namespace platwifi
