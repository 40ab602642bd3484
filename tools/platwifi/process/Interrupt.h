#pragma once

#include "process/TerminalState.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace cli {

/// What happens on SIGINT, SIGTERM, SIGHUP and SIGQUIT: the command ends in an orderly way at its next
/// wait or check. One that is in the middle of a call of the library for another second is ended by
/// force; no child, no socket or result of a child and no changed terminal stays behind.
///
/// To be made before any other thread, by the first one, which runs the command: so no thread of the
/// library gets a signal.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();

    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// @throws Interrupted where a signal has come
    void check() const;

    /// Waits for that long. @throws Interrupted at once when a signal comes
    void pause(std::chrono::milliseconds time) const;

    /// Waits until there is something to read. @throws Interrupted at once when a signal comes
    void waitForInput(int descriptor) const;

    /// While it lives, the command is not ended by force: what it does must be finished.
    class Deferred {
    public:
        explicit Deferred(Interrupt& interrupt);
        ~Deferred();
        Deferred(const Deferred&) = delete;
        Deferred& operator=(const Deferred&) = delete;

    private:
        Interrupt& m_interrupt;
    };

    /// Ends this program by the signal, as if it had never been caught.
    [[noreturn]] static void endBy(int signal);

private:
    void watch();
    void endByForce(int signal);
    void wakeMain() const;

    TerminalState m_terminal;
    const pthread_t m_owner = pthread_self(); ///< the thread that runs the command
    sigset_t m_signals{};
    int m_pipe[2] = {-1, -1}; ///< readable once a signal has come
    std::atomic<int> m_signal{0};
    std::mutex m_mutex; ///< guards the two below
    bool m_isOver = false;
    unsigned int m_deferred = 0;
    std::condition_variable m_changed;
    std::thread m_watcher;
};

} // namespace cli
