#pragma once

#include "settings/WifiHostSettings.h"

namespace cli {

/// The lock of the settings for as long as it lives. Nobody else changes networks meanwhile, nor does
/// a reload discard what has not been saved.
class SettingsGuard {
public:
    explicit SettingsGuard(WifiHostSettings& settings) : m_settings(settings) {
        m_settings.lockSettings();
    }
    ~SettingsGuard() { m_settings.unlockSettings(); }
    SettingsGuard(const SettingsGuard&) = delete;
    SettingsGuard& operator=(const SettingsGuard&) = delete;

private:
    WifiHostSettings& m_settings;
};

} // namespace cli
