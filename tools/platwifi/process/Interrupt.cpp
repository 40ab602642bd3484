#include "process/Interrupt.h"

#include "process/Children.h"
#include "process/ControlConnection.h"
#include "process/ResultFiles.h"
#include "process/SharedBlock.h"
#include "values/Failure.h"

#include <iostream>
#include <pthread.h>
#include <thread>
#include <unistd.h>

namespace cli {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds GRACE_PERIOD{1000}; // from the signal until the command is ended by force
constexpr int END_OF_WATCH = SIGUSR1;      // ends the thread that waits for signals
constexpr int STOP = SIGUSR2;              // stops the thread that runs the command
constexpr int WATCHED[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

sigset_t watchedSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : WATCHED)
        sigaddset(&signals, signal);
    sigaddset(&signals, END_OF_WATCH);
    return signals;
}

std::atomic<bool> isStopped{false};

void pauseForever(int /*signal*/) {
    isStopped = true;
    for (;;)
        pause();
}

// Returns when the thread runs nothing but the signal handler.
void stop(pthread_t thread) {
    std::signal(STOP, pauseForever);
    pthread_kill(thread, STOP);
    while (!isStopped)
        std::this_thread::yield();
}

} // namespace

Interrupt::Interrupt() : m_signals(watchedSignals()) {
    pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    startWatch();
}

Interrupt::~Interrupt() {
    endWatch();
}

// Not a std::thread: its thread frees memory, for which the allocator first maps a region for that thread.
void Interrupt::startWatch() {
    const auto body = [](void* interrupt) -> void* {
        static_cast<Interrupt*>(interrupt)->watch();
        return nullptr;
    };
    if (pthread_create(&m_watcher, nullptr, body, this) != 0)
        throw Failure("no thread can be started; end some programs, then try again");
    m_isWatched = true;
}

void Interrupt::endWatch() {
    if (!m_isWatched)
        return;
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    pthread_kill(m_watcher, END_OF_WATCH);
    pthread_join(m_watcher, nullptr);
    m_isWatched = false;
}

// Ctrl-C ends the client, too. This thread may notice that before the watching thread notices the signal.
void Interrupt::checkFinally() {
    endWatch();
    const timespec now{};
    const int signal = sigtimedwait(&m_signals, nullptr, &now);
    if (signal > 0)
        cancel(signal);
    check();
}

void Interrupt::watch() {
    int signal = 0;
    sigwait(&m_signals, &signal);
    if (signal == END_OF_WATCH)
        return;
    cancel(signal);
    std::unique_lock<std::mutex> guard(m_mutex);
    while (!m_changed.wait_for(guard, GRACE_PERIOD, [this] { return m_isEnding; })) {
        if (m_deferred == 0)
            return endByForce(signal);
    }
}

// The message begins on a new line of the terminal, behind the "^C" or a line of progress. The owner is
// stopped before its child is killed, else it would start the next one. From then on nothing may wait
// for a lock that the owner holds, such as the allocator's.
void Interrupt::endByForce(int signal) {
    m_terminal.restore();
    std::cerr << (isatty(STDERR_FILENO) != 0 ? "\n" : "") << "platwifi: interrupted\n";
    leaveSharedBlock();
    const std::vector<std::string> results = resultsOf(m_owner);
    stop(m_owner);
    killChildrenOf(getpid());
    removeConnectionSockets();
    removeFiles(results);
    endBySignal(signal);
}

void Interrupt::endBySignal(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    raise(signal);
    _exit(FAILED);
}

} // namespace cli
