#pragma once

namespace cli::api {

/// Notifies the other processes with the library that the configuration was saved, for a save that the library
/// does not know of. Any thread may call it.
void notifyOtherProcesses();

} // namespace cli::api
