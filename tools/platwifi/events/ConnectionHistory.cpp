#include "events/ConnectionHistory.h"

namespace cli {

using Kind = Event::Kind;

void ConnectionHistory::complete(Event& event) {
    switch (event.kind) {
    case Kind::AUTHENTICATING:
    case Kind::ASSOCIATING:
        m_attempt = {event.bssid, event.ssid, std::nullopt};
        break;
    case Kind::ROAMING:
        if (m_current.bssid.empty()) // it was connected before the first event
            m_current.bssid = event.previousBssid;
        event.ssid = m_current.ssid;
        break;
    case Kind::CONNECTED:
        onConnected(event);
        break;
    case Kind::DISCONNECTED:
        onDisconnected(event);
        break;
    case Kind::WRONG_KEY:
    case Kind::AUTHENTICATION_REFUSED:
    case Kind::ASSOCIATION_REFUSED:
    case Kind::TIMED_OUT:
    case Kind::CERTIFICATE_REJECTED:
    case Kind::LOGIN_REFUSED:
    case Kind::EAP_FAILED:
        onFailed(event);
        break;
    default:
        break;
    }
}

void ConnectionHistory::onFailed(Event& event) const {
    if (event.ssid.empty() && (event.bssid.empty() || event.bssid == m_attempt.bssid))
        event.ssid = m_attempt.ssid;
}

void ConnectionHistory::onConnected(Event& event) {
    if (m_attempt.bssid.empty() || event.bssid == m_attempt.bssid)
        event.ssid = m_attempt.ssid;
    const bool isSameNetwork = !m_current.network || m_current.network == event.network;
    if (!m_current.bssid.empty() && m_current.bssid != event.bssid && isSameNetwork) {
        event.kind = Kind::ROAMED;
        event.previousBssid = m_current.bssid;
    }
    if (event.ssid.empty() && event.kind == Kind::ROAMED)
        event.ssid = m_current.ssid;
    m_current = {event.bssid, event.ssid, event.network};
}

void ConnectionHistory::onDisconnected(Event& event) {
    const bool isCurrent = event.bssid.empty() || event.bssid == m_current.bssid;
    const Place& place = isCurrent ? m_current : m_attempt;
    if (isCurrent || event.bssid == m_attempt.bssid) {
        event.ssid = place.ssid;
        event.network = place.network;
    }
    m_current = {};
}

} // namespace cli
