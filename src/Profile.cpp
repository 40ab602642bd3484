#include "Profile.h"

#include "platform/Environment.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>

namespace platwifi {
namespace {

struct Name {
    const char* text;
    Profile profile;
};

constexpr Name NAMES[] = {
    {"device", Profile::DEVICE},
    {"modern", Profile::MODERN},
};

constexpr int NOT_CHOSEN = -1;
std::atomic<int> chosen{NOT_CHOSEN};
std::mutex mutex; // guards the choice
bool isFixed = false;

const Name* find(const char* text) noexcept {
    for (const Name& name : NAMES) {
        if (text && std::strcmp(text, name.text) == 0)
            return &name;
    }
    return nullptr;
}

Profile profileOfEnvironment() noexcept {
    const char* const value = platform::environmentValue("PLATWIFI_PROFILE");
    if (!value)
        return Profile::DEVICE;
    if (const Name* const name = find(value))
        return name->profile;
    std::fputs("platwifi: PLATWIFI_PROFILE names no profile; the profile \"device\" is used; set "
               "it to \"device\" or \"modern\"\n",
               stderr);
    return Profile::DEVICE;
}

// The caller holds the mutex.
Profile readProfile() noexcept {
    if (chosen == NOT_CHOSEN)
        chosen = static_cast<int>(profileOfEnvironment());
    return static_cast<Profile>(chosen.load());
}

} // namespace

Profile profile() noexcept {
    const int known = chosen;
    if (known != NOT_CHOSEN)
        return static_cast<Profile>(known);
    const std::lock_guard<std::mutex> guard(mutex);
    return readProfile();
}

bool chooseProfile(const char* name) noexcept {
    const Name* const known = find(name);
    if (!known)
        return false;
    const std::lock_guard<std::mutex> guard(mutex);
    if (isFixed)
        return readProfile() == known->profile;
    chosen = static_cast<int>(known->profile);
    return true;
}

void fixProfile() noexcept {
    const std::lock_guard<std::mutex> guard(mutex);
    readProfile();
    isFixed = true;
}

void setProfile(Profile profile) noexcept {
    const std::lock_guard<std::mutex> guard(mutex);
    chosen = static_cast<int>(profile);
}

} // namespace platwifi
