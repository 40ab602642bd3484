#pragma once

#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"

#include <type_traits>

namespace platwifi {

/// Runs `body(WifiHostSettings&)` while the settings are locked. Without settings the result is false,
/// 0 or null.
template <typename Body>
auto withSettings(ErrorHandler* errors, const Body& body) {
    using Result = std::invoke_result_t<Body, WifiHostSettings&>;
    WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
    if (!settings)
        return Result{};
    const SettingsLock lock(*settings);
    return body(*settings);
}

/// Runs `body(WifiNetwork&)` on the network with this SSID, while the settings are locked. Without
/// such a network the result is `missing`; without settings it is false, 0 or null.
template <typename Result, typename Body>
Result withNetwork(ErrorHandler* errors, const char* iface, const char* ssid, Result missing,
                   const Body& body) {
    return withSettings(errors, [&](const WifiHostSettings& settings) -> Result {
        WifiNetwork* const network = settings.getNetwork(iface, ssid);
        return network ? body(*network) : missing;
    });
}

} // namespace platwifi
