#include "settings/KeyState.h"

#include <cstring>

namespace platwifi {
namespace {

constexpr const char* METHODS = "key_mgmt";
constexpr const char* KEY = "psk";

bool is(const char* key, const char* name) {
    return std::strcmp(key, name) == 0;
}

} // namespace

KeyState KeyState::beforeLoad() {
    KeyState state;
    state.m_need = Need::NOT_TOLD;
    return state;
}

// SAE has passwords of its own, which are not read, and takes no key in hexadecimal.
KeyState::Need KeyState::needOf(const char* methods) {
    if (std::strstr(methods, "SAE") || std::strstr(methods, "WPS"))
        return Need::ANOTHER;
    return std::strstr(methods, "PSK") ? Need::KEY : Need::NONE;
}

// A network with other values and no key management had one refused. The file does not hold any then, and
// the supplicant takes the default when it reads that.
void KeyState::read(const char* key, const char* value) {
    if (!value)
        return;
    if (m_need == Need::NOT_TOLD)
        m_need = Need::KEY;
    if (is(key, METHODS))
        m_need = needOf(value);
    else if (is(key, KEY))
        m_hasKey = true;
}

// A refused key management leaves none, with the same end; a refused key leaves the one there is.
void KeyState::written(const char* key, const char* value, bool accepted) {
    if (is(key, METHODS))
        m_need = accepted ? needOf(value) : Need::KEY;
    else if (is(key, KEY) && accepted)
        m_hasKey = true;
}

bool KeyState::mayBeLeftOut() const {
    return m_need == Need::ANOTHER || (m_need == Need::KEY && !m_hasKey);
}

} // namespace platwifi
