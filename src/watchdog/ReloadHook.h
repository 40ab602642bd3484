#pragma once

namespace platwifi {

/// The hook by which the refresh thread calls back into the settings: loads them again, or for the
/// first time. A reload that fails destroys the watchdog of the settings.
///
/// Waits at most a second for the settings gate, because the thread that holds it may itself wait
/// for the end of the refresh thread.
/// @return false when the gate was held all that time; the caller tries again later
bool refreshSettings() noexcept;

} // namespace platwifi
