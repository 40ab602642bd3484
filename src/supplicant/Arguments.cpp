#include "supplicant/Arguments.h"

#include <cstdio>
#include <cstring>

namespace platwifi {

InterfaceOption::InterfaceOption(const char* iface) noexcept {
    if (iface && std::strlen(iface) + sizeof("-i") <= sizeof(m_text))
        std::snprintf(m_text, sizeof(m_text), "-i%s", iface);
}

NetworkIdArgument::NetworkIdArgument(unsigned char id) noexcept {
    std::snprintf(m_text, sizeof(m_text), "%hu", static_cast<unsigned short>(id));
}

bool isClientOption(const char* text) noexcept {
    const char second = text[0] == '-' ? text[1] : '\0';
    return second != '\0' && (second < '0' || second > '9');
}

} // namespace platwifi
