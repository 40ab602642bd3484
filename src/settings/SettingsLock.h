#pragma once

#include "settings/WifiHostSettings.h"

namespace platwifi {

/// Holds lockSettings() for the duration of a scope.
class SettingsLock {
public:
    explicit SettingsLock(WifiHostSettings& settings) noexcept : m_settings(settings) {
        m_settings.lockSettings();
    }
    ~SettingsLock() { m_settings.unlockSettings(); }

    SettingsLock(const SettingsLock&) = delete;
    SettingsLock& operator=(const SettingsLock&) = delete;

private:
    WifiHostSettings& m_settings;
};

} // namespace platwifi
