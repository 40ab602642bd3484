#include "host/ConnectionAttempt.h"

#include <algorithm>

namespace cli {
namespace {

// The likely cause if an attempt got no further than this state.
struct Cause {
    WpaState furthest;
    const char* text;
};

constexpr Cause CAUSES[] = {
    {WPA_STATE_UNKNOWN, "the supplicant does not answer; platwifi doctor tells more"},
    {WPA_STATE_DISCONNECTED,
     "the supplicant does not try; is the network disabled? platwifi networks"},
    {WPA_STATE_IDLE, "the supplicant does not try; is the network disabled? platwifi networks"},
    {WPA_STATE_SCANNING, "no access point in range fits; is it switched on, and of this kind of "
                         "security? platwifi scan"},
    {WPA_STATE_ASSOCIATING, "the access point does not answer; is it near enough?"},
    {WPA_STATE_ASSOCIATED, "the access point refuses the identity, password or certificate; "
                           "correct it with platwifi set"},
    {WPA_STATE_4WAY_HANDSHAKE,
     "the key is probably wrong; correct it with platwifi set SSID psk=-"},
    {WPA_STATE_GROUP_HANDSHAKE,
     "the key is probably wrong; correct it with platwifi set SSID psk=-"},
    {WPA_STATE_COMPLETED, "it was connected and is no more; try again"},
};

} // namespace

// After the association only a refusal leads back to these states: a network that is out of range is
// never associated. States of the network that was connected before do not count.
void ConnectionAttempt::onState(WpaState state, bool isOnNetwork) {
    const bool isBack = state == WPA_STATE_DISCONNECTED || state == WPA_STATE_SCANNING;
    m_isRefused = m_isRefused || (m_wasAssociated && isBack);
    m_wasAssociated = isOnNetwork && state >= WPA_STATE_ASSOCIATED;
    m_isComplete = isOnNetwork && state == WPA_STATE_COMPLETED;
    m_last = state;
    if (isOnNetwork || state < WPA_STATE_ASSOCIATED)
        m_furthest = std::max(m_furthest, state);
}

void ConnectionAttempt::onListed(bool isAvoided) {
    m_isRefused = m_isRefused || (m_wasTried && isAvoided);
    m_wasTried = m_wasTried || !isAvoided;
}

// A refusal may take less time than a poll, so that its states were never reported.
std::string ConnectionAttempt::likelyCause() const {
    if (m_isRefused && m_furthest < WPA_STATE_ASSOCIATED)
        return "the access point refuses the key, or the identity and password; correct them with "
               "platwifi set";
    for (const Cause& cause : CAUSES) {
        if (cause.furthest == m_furthest)
            return cause.text;
    }
    return CAUSES[0].text;
}

} // namespace cli
