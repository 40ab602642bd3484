#include "process/StandardStreams.h"

#include "values/Failure.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <string>
#include <unistd.h>

namespace cli {
namespace {

bool isOpen(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

} // namespace

bool hasReaderClosed() {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    return poll(&output, 1, 0) > 0 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

void fillClosedStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (!isOpen(stream)) // the lowest free descriptor is the stream's
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

// errno stays 0 if the stream failed before: the cause is not known then.
void flushOutput() {
    errno = 0;
    if (std::cout.flush())
        return;
    const std::string cause = errno == 0 ? "" : std::string(": ") + std::strerror(errno);
    if (errno == EPIPE || hasReaderClosed())
        throw Failure("");
    throw Failure("the result cannot be written" + cause + "; see where standard output leads to");
}

} // namespace cli
