#pragma once

#include "watchdog/SharedSignalBlock.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

namespace test {

/// Raises the refresh signal as another process does after a save. It shares the block with settings
/// that are made while it lives, as long as none of them has ended.
class ForeignSignal {
public:
    ForeignSignal();
    ~ForeignSignal();

    ForeignSignal(const ForeignSignal&) = delete;
    ForeignSignal& operator=(const ForeignSignal&) = delete;

    /// From the calling thread: that one does not heed it.
    void raise();

    /// Returns when a refresh thread of this process has taken the signal, and has done about it
    /// what it could without waiting for a client.
    void awaitTaken() const;

private:
    WifiHostSettingsWatchdog m_watchdog;
    const volatile SharedSignalBlock* m_block;
};

} // namespace test
