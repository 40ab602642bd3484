#pragma once

#include "jni/Frame.h"
#include "jni/LockedSettings.h"

#include <type_traits>

namespace platwifi {

/// The frame of a native for the settings: runs `body(WifiHostSettings&, const char*...)`, with the
/// characters of the strings, while the settings are locked. A Java string that `body` returns is made
/// under the lock. Without settings the result is false, 0 or null.
template <typename Body, typename... Strings>
auto callOnSettings(JNIEnv* environment, const Body& body, Strings... strings) {
    const auto call = [&](ErrorHandler* errors, auto... texts) {
        return withSettings(errors,
                            [&](WifiHostSettings& settings) { return body(settings, texts...); });
    };
    return callNative(environment, call, strings...);
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
