#pragma once

#include "Profile.h"

namespace test {

constexpr platwifi::Profile DEVICE = platwifi::Profile::DEVICE;
constexpr platwifi::Profile MODERN = platwifi::Profile::MODERN;

/// This profile for the lifetime of the object. No settings may be loaded when it begins and ends.
class UseProfile {
public:
    explicit UseProfile(platwifi::Profile profile) : m_before(platwifi::profile()) {
        platwifi::setProfile(profile);
    }
    ~UseProfile() { platwifi::setProfile(m_before); }

    UseProfile(const UseProfile&) = delete;
    UseProfile& operator=(const UseProfile&) = delete;

private:
    platwifi::Profile m_before;
};

/// What a function gives under a profile.
template <typename Function>
auto under(platwifi::Profile profile, Function function) {
    const UseProfile use(profile);
    return function();
}

} // namespace test
