#pragma once

#include "display/StateLine.h"
#include "host/ConnectionAttempt.h"
#include "host/Host.h"

#include <chrono>
#include <string>

namespace cli {

/// Polls the supplicant's state after a network was selected.
class ConnectionWatch {
public:
    using Clock = std::chrono::steady_clock;

    /// @param ssid  the network, as the library has it
    ConnectionWatch(Context& context, Host& host, std::string ssid);

    /// Polls until the connection is complete or refused, or until the timeout of the request.
    /// @param line  shows the states; may be null
    /// @throws Interrupted
    void run(StateLine* line);

    const ConnectionAttempt& attempt() const { return m_attempt; }

    /// Since construction.
    Clock::duration elapsed() const { return Clock::now() - m_start; }

private:
    void poll(StateLine* line);
    void pollAvoidance();

    Context& m_context;
    Host& m_host;
    const std::string m_ssid;
    const Clock::time_point m_start;
    ConnectionAttempt m_attempt;
};

} // namespace cli
