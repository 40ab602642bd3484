#include "process/Children.h"

#include "Paths.h"
#include "platform/FileDescriptor.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace cli {
namespace {

/// The process ids of a thread's children, as the kernel lists them: each with a blank behind it.
class ChildList {
public:
    explicit ChildList(pid_t thread) noexcept {
        char path[64];
        std::snprintf(path, sizeof path, "/proc/self/task/%d/children", static_cast<int>(thread));
        const platform::FileDescriptor file(open(path, O_RDONLY | O_CLOEXEC));
        const ssize_t size = read(file.number(), m_text, sizeof m_text - 1);
        m_text[size > 0 ? size : 0] = '\0';
    }

    /// @return 0 at the end of the list
    pid_t next() noexcept { return static_cast<pid_t>(std::strtol(m_next, &m_next, 10)); }

private:
    char m_text[1024];
    char* m_next = m_text;
};

void killAndReap(pid_t child) noexcept {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    removeSocketOf(child);
}

} // namespace

void killChildrenOf(pid_t thread) noexcept {
    ChildList children(thread);
    while (const pid_t child = children.next())
        killAndReap(child);
}

void removeSocketOf(pid_t process) noexcept {
    char socket[64];
    std::snprintf(socket, sizeof socket, platwifi::paths::CLIENT_SOCKET_FORMAT,
                  static_cast<int>(process));
    unlink(socket);
}

} // namespace cli
