#pragma once

#include "process/TerminalState.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <pthread.h>

namespace cli {

/// Handles SIGINT, SIGTERM, SIGHUP and SIGQUIT. The command ends in an orderly way at its next wait or
/// check. If it does not get there within a second, since a call of the library takes longer, it is
/// ended by force: its child processes are killed, their sockets and result files are removed, and
/// the terminal is restored.
///
/// To be constructed by the main thread, which runs the command, before any other thread exists:
/// threads inherit the signal mask, so that no thread of the library gets a signal.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();

    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// @throws Interrupted after a signal
    void check() const;

    /// Ends the handling of signals. Of a signal that came before, the command has seen the effect on a child
    /// process at most; this takes care that it counts. @throws Interrupted after a signal
    void checkFinally();

    /// Waits that long. @throws Interrupted as soon as a signal comes
    void pause(std::chrono::milliseconds time) const;

    /// Waits until the descriptor is readable. @throws Interrupted as soon as a signal comes
    void waitForInput(int descriptor) const;

    /// Waits for the same, that long at most. @return whether the descriptor is readable
    bool waitForInput(int descriptor, std::chrono::milliseconds time) const;

    /// While an object exists, the command is not ended by force: it is changing the configuration,
    /// and must finish that.
    class Deferred {
    public:
        explicit Deferred(Interrupt& interrupt);
        ~Deferred();
        Deferred(const Deferred&) = delete;
        Deferred& operator=(const Deferred&) = delete;

    private:
        Interrupt& m_interrupt;
    };

    /// Ends this process by the signal, as if it had never been caught.
    [[noreturn]] static void endBySignal(int signal);

private:
    void startWatch();
    void watch();
    void endWatch();
    void endByForce(int signal);
    void wakeOwner() const;

    TerminalState m_terminal;
    const pthread_t m_owner = pthread_self(); ///< thread that runs the command
    sigset_t m_signals{};
    int m_pipe[2] = {-1, -1}; ///< readable after a signal
    std::atomic<int> m_signal{0};
    std::mutex m_mutex;          ///< guards m_isEnding and m_deferred
    bool m_isEnding = false;     ///< the object is being destroyed
    unsigned int m_deferred = 0; ///< count of Deferred objects
    std::condition_variable m_changed;
    pthread_t m_watcher{}; ///< valid while m_isWatched
    bool m_isWatched = false;
};

} // namespace cli
