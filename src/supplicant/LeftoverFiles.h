#pragma once

namespace platwifi {

/// Removes the result files that processes of this user have left behind: killed in the middle of a
/// command, or ended after a scan. A file stays when a thread of a living process uses its name, when
/// it is not a regular file of the effective user with one name, or when it cannot be looked at.
/// Nothing is reported.
void removeLeftoverFiles() noexcept;

/// The same, the first time in this process.
void removeLeftoverFilesOnce() noexcept;

} // namespace platwifi
