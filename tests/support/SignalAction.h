#pragma once

#include <csignal>

namespace test {

/// Sets the action of a signal during its lifetime.
class SignalAction {
public:
    SignalAction(int signal, void (*handler)(int), int flags = 0) : m_signal(signal) {
        struct sigaction action {};
        action.sa_handler = handler;
        action.sa_flags = flags;
        sigaction(m_signal, &action, &m_before);
    }
    ~SignalAction() { sigaction(m_signal, &m_before, nullptr); }

    SignalAction(const SignalAction&) = delete;
    SignalAction& operator=(const SignalAction&) = delete;

private:
    int m_signal;
    struct sigaction m_before {};
};

} // namespace test
