#include "common/Descriptors.h"

#include <algorithm>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr int BATCH = 256;
static_assert(BATCH <= 256, "a system may limit the descriptors of a poll() to 256");

// A limit of a million descriptors is common, and one command must not take a million looks. Descriptors above this
// one are closed in the child by their close-on-exec flag alone.
constexpr long MOST_DESCRIPTORS = 65536;

int descriptorLimit() noexcept {
    const long limit = sysconf(_SC_OPEN_MAX);
    return static_cast<int>(limit < 0 ? MOST_DESCRIPTORS : std::min(limit, MOST_DESCRIPTORS));
}

// Calls `action` with each open descriptor from `first` on. One poll() looks at many descriptors: it marks those that
// are not open.
template <typename Action>
void forEachOpen(int first, Action action) noexcept {
    const int limit = descriptorLimit();
    for (int start = first; start < limit; start += BATCH) {
        pollfd looks[BATCH];
        const int count = std::min(BATCH, limit - start);
        for (int i = 0; i < count; ++i)
            looks[i] = {start + i, 0, 0};
        const bool isKnown = poll(looks, static_cast<nfds_t>(count), 0) >= 0;
        for (int i = 0; i < count; ++i) {
            if (!isKnown || (looks[i].revents & POLLNVAL) == 0)
                action(looks[i].fd);
        }
    }
}

void closeOnExec(int descriptor) noexcept {
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

} // namespace

// A program that another thread starts in between gets the pipe.
Pipe::Pipe() noexcept {
    int ends[2];
    if (pipe(ends) != 0)
        return;
    reader = FileDescriptor(ends[0]);
    writer = FileDescriptor(ends[1]);
    closeOnExec(ends[0]);
    closeOnExec(ends[1]);
}

void closeFrom(int first) noexcept {
    forEachOpen(first, [](int descriptor) { close(descriptor); });
}

// A descriptor without the flag that another thread opens after this reaches the child. One that another thread
// closes does no harm: POSIX lets posix_spawn() succeed then.
int addCloseFrom(posix_spawn_file_actions_t& actions, int first) noexcept {
    int error = 0;
    forEachOpen(first, [&](int descriptor) {
        const int flags = fcntl(descriptor, F_GETFD);
        if (error == 0 && flags != -1 && (flags & FD_CLOEXEC) == 0)
            error = posix_spawn_file_actions_addclose(&actions, descriptor);
    });
    return error;
}

} // namespace platform
