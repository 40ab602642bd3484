#pragma once

#include "settings/WifiHostSettings.h"

#include "supplicant/ReplyLines.h"

#include <memory>

// Private members for states that no load and no reply brings about: a state of the supplicant
// without an adapter or without a word, networks without adapters, an adapter without a name. The
// library does not rely on their absence. An explicit instantiation may name private members.

namespace test {

template <typename Name, typename Name::Member MEMBER>
struct Exposed {
    friend typename Name::Member memberOf(Name) { return MEMBER; }
};

struct SupplicantState {
    using Member = WpaState WifiHostSettings::*;
    friend Member memberOf(SupplicantState);
};
template struct Exposed<SupplicantState, &WifiHostSettings::supplicantState>;

struct AdapterNames {
    using Member = std::unique_ptr<platwifi::ReplyLines> WifiHostSettings::*;
    friend Member memberOf(AdapterNames);
};
template struct Exposed<AdapterNames, &WifiHostSettings::adapterNames>;

} // namespace test
