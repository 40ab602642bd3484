#pragma once

#include "Export.h"

/// Skeleton.
class PLATWIFI_API WifiHostSettingsWatchdog {
public:
    bool initialize() noexcept;
    void start() noexcept;
    void stop() noexcept;
    void sendSaveSettingsSignal() noexcept;
};
