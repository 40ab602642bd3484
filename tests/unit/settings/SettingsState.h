#pragma once

#include "settings/WifiHostSettings.h"

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "supplicant/ReplyLines.h"

#include <memory>

// What the settings keep to themselves. An explicit instantiation may name private members.

namespace test {

template <typename Name, typename Name::Member MEMBER>
struct Exposed {
    friend typename Name::Member memberOf(Name) { return MEMBER; }
};

struct CurrentNetwork {
    using Member = WifiNetwork* WifiHostSettings::*;
    friend Member memberOf(CurrentNetwork);
};
template struct Exposed<CurrentNetwork, &WifiHostSettings::currentNetwork>;

struct SupplicantState {
    using Member = WpaState WifiHostSettings::*;
    friend Member memberOf(SupplicantState);
};
template struct Exposed<SupplicantState, &WifiHostSettings::supplicantState>;

struct Networks {
    using Member = WifiNetworkList* WifiHostSettings::*;
    friend Member memberOf(Networks);
};
template struct Exposed<Networks, &WifiHostSettings::networkList>;

struct AdapterNames {
    using Member = std::unique_ptr<platwifi::ReplyLines> WifiHostSettings::*;
    friend Member memberOf(AdapterNames);
};
template struct Exposed<AdapterNames, &WifiHostSettings::adapterNames>;

inline const WifiNetwork* currentNetworkOf(const WifiHostSettings& settings) {
    return settings.*memberOf(CurrentNetwork{});
}

inline WpaState supplicantStateOf(const WifiHostSettings& settings) {
    return settings.*memberOf(SupplicantState{});
}

/// Null after a failure.
inline const WifiNetworkList* networksOf(const WifiHostSettings& settings) {
    return settings.*memberOf(Networks{});
}

/// Null when they are not loaded.
inline const platwifi::ReplyLines* adapterNamesOf(const WifiHostSettings& settings) {
    return (settings.*memberOf(AdapterNames{})).get();
}

} // namespace test
