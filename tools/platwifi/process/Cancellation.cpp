#include "process/Cancellation.h"

#include "values/Failure.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace cli {

using std::chrono::milliseconds;

Cancellation::Cancellation() {
    if (pipe2(m_pipe, O_CLOEXEC) != 0)
        throw Failure("no pipe can be made: too many files are open; close some, then try again");
}

Cancellation::~Cancellation() {
    close(m_pipe[0]);
    close(m_pipe[1]);
}

void Cancellation::cancel(int signal) noexcept {
    int none = 0;
    if (!m_signal.compare_exchange_strong(none, signal))
        return;
    const char byte = 0;
    while (write(m_pipe[1], &byte, 1) < 0 && errno == EINTR) {
    }
}

void Cancellation::check() const {
    if (const int signal = m_signal)
        throw Interrupted{signal};
}

void Cancellation::pause(milliseconds time) const {
    check();
    pollfd end{m_pipe[0], POLLIN, 0};
    poll(&end, 1, static_cast<int>(time.count()));
    check();
}

void Cancellation::waitForInput(int descriptor) const {
    pollfd either[] = {{m_pipe[0], POLLIN, 0}, {descriptor, POLLIN, 0}};
    while (poll(either, 2, -1) < 0 && errno == EINTR) {
    }
    check();
}

bool Cancellation::waitForInput(int descriptor, milliseconds time) const {
    pollfd either[] = {{m_pipe[0], POLLIN, 0}, {descriptor, POLLIN, 0}};
    const int ready = poll(either, 2, static_cast<int>(time.count()));
    check();
    return ready > 0 && either[1].revents != 0;
}

Cancellation::Deferred::Deferred(Cancellation& cancellation) : m_cancellation(cancellation) {
    const std::lock_guard<std::mutex> guard(m_cancellation.m_mutex);
    ++m_cancellation.m_deferred;
}

Cancellation::Deferred::~Deferred() {
    const std::lock_guard<std::mutex> guard(m_cancellation.m_mutex);
    --m_cancellation.m_deferred;
}

} // namespace cli
