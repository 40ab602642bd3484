#include "platform/SpawnedChild.h"

#include "SpawnPlan.h"
#include "platform/Spawn.h"

#include <cerrno>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {
namespace {

// Whether the system drops the status of this process's children.
bool dropsStatus() noexcept {
    struct sigaction action {};
    return sigaction(SIGCHLD, nullptr, &action) == 0 &&
           (action.sa_handler == SIG_IGN || (action.sa_flags & SA_NOCLDWAIT) != 0);
}

/// Every signal blocked for the calling thread, and for what it forks, as long as this object lives: the
/// handlers of a program must not run in a copy of it.
class NoSignals {
public:
    NoSignals() noexcept {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~NoSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;

private:
    sigset_t m_before{};
};

struct Pipe {
    FileDescriptor reader;
    FileDescriptor writer;

    Pipe() noexcept {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return;
        reader = FileDescriptor(ends[0]);
        writer = FileDescriptor(ends[1]);
    }
};

/// What comes through the pipe first.
struct Start {
    int error;
    pid_t child;
};

// The process in between. It may be a copy of one thread of many: nothing here takes memory or a lock. It
// lets go of all that it has inherited, as it may outlive the program.
[[noreturn]] void report(const SpawnPlan& plan, int pipe) noexcept {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    sigaction(SIGCHLD, &standard, nullptr);
    Start start{0, -1};
    start.error = plan.run(start.child);
    dup2(pipe, STDIN_FILENO);
    closefrom(STDIN_FILENO + 1);
    int status = 0;
    const bool isSent = write(STDIN_FILENO, &start, sizeof(start)) == sizeof(start);
    if (isSent && start.error == 0 && waitpid(start.child, &status, 0) == start.child)
        static_cast<void>(!write(STDIN_FILENO, &status, sizeof(status)));
    _exit(0);
}

// Returns how many bytes came; fewer than asked for at the end.
template <typename Value>
ssize_t readValue(int pipe, Value& value) noexcept {
    ssize_t got = 0;
    do
        got = read(pipe, &value, sizeof(value));
    while (got == -1 && errno == EINTR);
    return got;
}

// For a process that is about to end. The program may have come to keep the status of its children
// meanwhile; then something of it would be left.
void reap(pid_t child) noexcept {
    while (waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
    }
}

} // namespace

SpawnedChild::SpawnedChild(const char* path, const char* const arguments[], int output) noexcept {
    if (path && arguments && dropsStatus()) {
        try {
            startReported(path, arguments, output);
        } catch (const std::exception&) {
            errno = ENOMEM;
        }
        return;
    }
    m_id = Spawn::start(path, arguments, output);
    m_endingId = m_id;
}

void SpawnedChild::startReported(const char* path, const char* const arguments[], int output) {
    const SpawnPlan plan(path, arguments, output);
    Pipe pipe;
    if (!pipe.reader.isOpen())
        return;
    {
        const NoSignals blocked;
        m_endingId = fork();
        if (m_endingId == 0)
            report(plan, pipe.writer.number());
    }
    if (m_endingId == -1)
        return;
    pipe.writer.close(); // so that the end of the process in between is the end of what can be read
    Start start{ECHILD, -1};
    readValue(pipe.reader.number(), start);
    if (start.error != 0) {
        reap(m_endingId);
        plan.warn(start.error);
        errno = start.error;
        return;
    }
    fcntl(pipe.reader.number(), F_SETFL, O_NONBLOCK);
    m_id = start.child;
    m_report = std::move(pipe.reader);
}

SpawnedChild::Look SpawnedChild::look() noexcept {
    if (!m_report.isOpen()) {
        const pid_t reaped = waitpid(m_id, &m_status, WNOHANG);
        return reaped == 0 ? Look::RUNNING : reaped > 0 ? Look::ENDED : Look::LOST;
    }
    const ssize_t got = readValue(m_report.number(), m_status);
    if (got == -1 && errno == EAGAIN)
        return Look::RUNNING;
    reap(m_endingId);
    return got == sizeof(m_status) ? Look::ENDED : Look::LOST;
}

} // namespace platform
