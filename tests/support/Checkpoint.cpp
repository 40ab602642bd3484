#include "support/Checkpoint.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace test {
namespace {

// Returns when the other side has opened the pipe as well.
platform::FileDescriptor openToWrite(const std::string& path) {
    int descriptor = -1;
    do
        descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    while (descriptor == -1 && errno == EINTR);
    if (descriptor == -1)
        throw std::system_error(errno, std::generic_category(), path);
    return platform::FileDescriptor(descriptor);
}

} // namespace

Checkpoint::Checkpoint(std::string path) : m_path(std::move(path)) {
    if (mkfifo(m_path.c_str(), 0600) != 0)
        throw std::system_error(errno, std::generic_category(), m_path);
}

Checkpoint::~Checkpoint() {
    unlink(m_path.c_str());
}

void Checkpoint::awaitArrival() {
    m_writer = openToWrite(m_path);
}

void Checkpoint::letGo() {
    m_writer.close();
}

} // namespace test
