#pragma once

#include "process/Cancellation.h"
#include "process/TerminalState.h"

#include <condition_variable>
#include <csignal>
#include <pthread.h>

namespace cli {

/// Handles SIGINT, SIGTERM, SIGHUP and SIGQUIT. The command ends in an orderly way at its next wait or
/// check. If it does not get there within a second, since a call of the library takes longer, it is
/// ended by force: its child processes are killed, their sockets and result files are removed, and
/// the terminal is restored.
///
/// To be constructed by the main thread, which runs the command, before any other thread exists:
/// threads inherit the signal mask, so that no thread of the library gets a signal.
class Interrupt : public Cancellation {
public:
    Interrupt();
    ~Interrupt();

    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// Ends the handling of signals. Of a signal that came before, the command has seen the effect on a child
    /// process at most; this takes care that it counts. @throws Interrupted after a signal
    void checkFinally();

    /// Ends this process by the signal, as if it had never been caught.
    [[noreturn]] static void endBySignal(int signal);

private:
    void startWatch();
    void watch();
    void endWatch();
    void endByForce(int signal);

    TerminalState m_terminal;
    const pthread_t m_owner = pthread_self(); ///< thread that runs the command
    sigset_t m_signals{};
    bool m_isEnding = false; ///< the object is being destroyed; guarded by m_mutex
    std::condition_variable m_changed;
    pthread_t m_watcher{}; ///< valid while m_isWatched
    bool m_isWatched = false;
};

} // namespace cli
