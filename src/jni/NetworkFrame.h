#pragma once

#include "jni/Frame.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"

#include <type_traits>

namespace platwifi {

/// Runs `body(WifiNetwork&)` on the network with this SSID, while the settings are locked. Without
/// such a network the result is `missing`; without settings it is false, 0 or null.
template <typename Result, typename Body>
Result withNetwork(ErrorHandler* errors, const char* iface, const char* ssid, Result missing,
                   const Body& body) {
    WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
    if (!settings)
        return Result{};
    const SettingsLock lock(*settings);
    WifiNetwork* const network = settings->getNetwork(iface, ssid);
    return network ? body(*network) : missing;
}

/// The frame of a native for one network: runs `body(WifiNetwork&, ErrorHandler*, const char*...)`,
/// with the characters of the strings that follow the SSID, while the settings are locked. A Java
/// string that `body` returns is made under the lock. Without such a network the result is false, 0
/// or null.
template <typename Body, typename... Strings>
auto callOnNetwork(JNIEnv* environment, const Body& body, jstring iface, jstring ssid,
                   Strings... strings) {
    const auto find = [&](ErrorHandler* errors, const char* name, const char* wanted,
                          auto... texts) {
        const auto run = [&](WifiNetwork& network) { return body(network, errors, texts...); };
        using Result = std::invoke_result_t<decltype(run), WifiNetwork&>;
        return withNetwork(errors, name, wanted, Result{}, run);
    };
    return callNative(environment, find, iface, ssid, strings...);
}

} // namespace platwifi
