#include "host/ConnectionWatch.h"

#include "client/Listing.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"

#include <utility>

namespace cli {
namespace {

constexpr std::chrono::milliseconds POLL_PERIOD{50};

} // namespace

ConnectionWatch::ConnectionWatch(Context& context, Host& host, std::string ssid)
    : m_context(context), m_host(host), m_ssid(std::move(ssid)), m_start(Clock::now()) {}

void ConnectionWatch::run(StateLine* line) {
    const std::chrono::seconds timeout(m_context.request.timeout);
    poll(line);
    while (!m_attempt.isComplete() && !m_attempt.isRefused() && elapsed() < timeout) {
        m_context.interrupt.pause(POLL_PERIOD);
        poll(line);
    }
}

// States of another network are not shown. WPA_STATE_UNKNOWN is a state that the library does not
// know, such as AUTHENTICATING, and is not shown either.
void ConnectionWatch::poll(StateLine* line) {
    const auto state = static_cast<WpaState>(getDaemonStatus(nullptr, m_host.iface().c_str()));
    const bool isOnNetwork = isSameSsid(m_host.currentNetwork(), m_ssid);
    m_attempt.onState(state, isOnNetwork);
    if (state == WPA_STATE_DISCONNECTED || state == WPA_STATE_SCANNING)
        pollAvoidance();
    const bool isOfThisAttempt = isOnNetwork || state < WPA_STATE_ASSOCIATED;
    if (line && isOfThisAttempt && state != WPA_STATE_UNKNOWN)
        line->add(platwifi::stateText(state));
}

// The supplicant flags a network that has refused it, and avoids it for some seconds.
void ConnectionWatch::pollAvoidance() {
    bool ok = false;
    for (const ListedNetwork& network : listedNetworks(m_host.iface(), ok)) {
        if (isSameSsid(network.ssid, m_ssid))
            m_attempt.onListed(network.isAvoided);
    }
}

} // namespace cli
