#include "settings/KeyState.h"

#include <cstring>

namespace platwifi {
namespace {

constexpr const char* KEY_MANAGEMENT = "key_mgmt";
constexpr const char* KEY = "psk";

bool is(const char* key, const char* name) {
    return std::strcmp(key, name) == 0;
}

} // namespace

KeyState KeyState::beforeLoad() {
    KeyState state;
    state.m_need = Need::UNKNOWN;
    return state;
}

// SAE has a password of its own, and takes no key in hexadecimal: "psk" says nothing about it.
KeyState::Need KeyState::needOf(const char* methods) {
    if (std::strstr(methods, "SAE") || std::strstr(methods, "WPS"))
        return Need::SECRET;
    return std::strstr(methods, "PSK") ? Need::KEY : Need::NOTHING;
}

// A network that has other values, but no key management, had a key management that the supplicant refused.
// Its file holds none, and it takes the default, WPA-PSK, when it reads the file.
void KeyState::read(const char* key, const char* value) {
    if (!value)
        return;
    if (m_need == Need::UNKNOWN)
        m_need = Need::KEY;
    if (is(key, KEY_MANAGEMENT))
        m_need = needOf(value);
    else if (is(key, KEY))
        m_hasKey = true;
}

// After a refused key management the supplicant has none, and takes the default at the next reading of its
// file. After a refused key it keeps the one that it has.
void KeyState::written(const char* key, const char* value, bool accepted) {
    if (is(key, KEY_MANAGEMENT))
        m_need = accepted ? needOf(value) : Need::KEY;
    else if (is(key, KEY) && accepted)
        m_hasKey = true;
}

bool KeyState::mayBeLeftOut() const {
    return m_need == Need::SECRET || (m_need == Need::KEY && !m_hasKey);
}

} // namespace platwifi
