#pragma once

#include "watchdog/SharedSignalBlock.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

namespace test {

/// Raises the refresh signal as another process does after a save. It shares the block with
/// settings that are loaded during its lifetime, until the first of them is unloaded.
class ForeignSignal {
public:
    ForeignSignal();
    ~ForeignSignal();

    ForeignSignal(const ForeignSignal&) = delete;
    ForeignSignal& operator=(const ForeignSignal&) = delete;

    /// Raises it with the calling thread as its sender, so this thread does not take it.
    void raise();

    /// Returns when a refresh thread of this process has taken the signal and has reloaded, or
    /// waits for a client in the reload.
    void awaitTaken() const;

private:
    WifiHostSettingsWatchdog m_watchdog;
    const volatile SharedSignalBlock* m_block;
};

} // namespace test
