#pragma once

namespace platwifi {

/// Removes the result files of ended processes of this user: those killed during a command, and
/// those that ran a scan. A file stays when a thread of a living process uses its name, when it is
/// not a regular file of the effective user with one name, or when its status cannot be read.
/// Reports nothing.
void removeLeftoverFiles() noexcept;

/// The same, the first time in this process.
void removeLeftoverFilesOnce() noexcept;

} // namespace platwifi
