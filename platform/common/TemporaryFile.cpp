#include "common/TemporaryFile.h"

#include "platform/PlatformUtil.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

constexpr int NAMES_TO_TRY = 100;

// The time is added because threads in different process namespaces may have the same id.
std::string uniqueEnd() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    return "." + std::to_string(PlatformUtil::threadId()) + "." + std::to_string(time);
}

} // namespace

// mkstemp() would leave the file open in a program that another thread starts at the same time.
TemporaryFile::TemporaryFile(const std::string& beginning, mode_t mode) {
    for (int attempt = 0; attempt < NAMES_TO_TRY && !isOpen(); ++attempt) {
        m_path = beginning + uniqueEnd();
        m_file = FileDescriptor(
            open(m_path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!isOpen() && errno != EEXIST)
            return;
    }
}

TemporaryFile::~TemporaryFile() {
    removeName();
}

FileDescriptor TemporaryFile::release() noexcept {
    removeName();
    return std::move(m_file);
}

void TemporaryFile::removeName() const noexcept {
    if (isOpen())
        unlink(m_path.c_str());
}

} // namespace platform
