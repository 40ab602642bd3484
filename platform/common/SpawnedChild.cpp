#include "platform/SpawnedChild.h"

#include "common/Descriptors.h"
#include "common/SpawnPlan.h"
#include "platform/Spawn.h"

#include <cerrno>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {
namespace {

// Whether the system discards the exit status of this process's children.
bool discardsStatus() noexcept {
    struct sigaction action {};
    return sigaction(SIGCHLD, nullptr, &action) == 0 &&
           (action.sa_handler == SIG_IGN || (action.sa_flags & SA_NOCLDWAIT) != 0);
}

/// Blocks every signal for the calling thread and the processes that it forks, during the object's
/// lifetime: no signal handler of the program may run in the forked process.
class BlockedSignals {
public:
    BlockedSignals() noexcept {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

private:
    sigset_t m_before{};
};

/// The first message in the pipe.
struct Start {
    int error;
    pid_t child;
};

// Runs in the intermediate process. It was forked from a process with several threads, so nothing
// here may take memory or a lock. It closes all inherited descriptors: it may outlive the program,
// and must not keep the program's sockets and pipes open.
[[noreturn]] void report(const SpawnPlan& plan, int pipe) noexcept {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    sigaction(SIGCHLD, &standard, nullptr);
    Start start{0, -1};
    start.error = plan.run(start.child);
    dup2(pipe, STDIN_FILENO);
    closeFrom(STDIN_FILENO + 1);
    int status = 0;
    const bool isSent = write(STDIN_FILENO, &start, sizeof(start)) == sizeof(start);
    if (isSent && start.error == 0 && waitpid(start.child, &status, 0) == start.child)
        static_cast<void>(!write(STDIN_FILENO, &status, sizeof(status)));
    _exit(0);
}

// Returns the number of bytes read, fewer than the size of the value at the end of the pipe, or -1.
template <typename Value>
ssize_t readValue(int pipe, Value& value) noexcept {
    ssize_t got = 0;
    do
        got = read(pipe, &value, sizeof(value));
    while (got == -1 && errno == EINTR);
    return got;
}

// Waits for a process that is about to end. Needed because the program may have changed the
// disposition of SIGCHLD meanwhile: the process would stay as a zombie then.
void reap(pid_t child) noexcept {
    while (waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
    }
}

} // namespace

SpawnedChild::SpawnedChild(const char* path, const char* const arguments[], int output) noexcept {
    if (path && arguments && discardsStatus()) {
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
        const BlockedSignals blocked;
        m_endingId = fork();
        if (m_endingId == 0)
            report(plan, pipe.writer.number());
    }
    if (m_endingId == -1)
        return;
    pipe.writer.close(); // so that reading ends when the intermediate process does
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
