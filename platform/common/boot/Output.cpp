#include "Output.h"

#include <errno.h>
#include <string.h>
#include <unistd.h>

namespace boot {
namespace {

bool writeAll(int descriptor, const char* text, size_t length) noexcept {
    while (length > 0) {
        const ssize_t written = write(descriptor, text, length);
        if (written == -1 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        text += written;
        length -= static_cast<size_t>(written);
    }
    return true;
}

} // namespace

Output output;

void Output::add(const char* text) noexcept {
    add(text, strlen(text));
}

void Output::add(const char* text, size_t length) noexcept {
    while (length > 0) {
        if (m_length == sizeof(m_text))
            flush();
        const size_t room = sizeof(m_text) - m_length;
        const size_t part = length < room ? length : room;
        memcpy(m_text + m_length, text, part);
        m_length += part;
        text += part;
        length -= part;
    }
}

bool Output::flush() noexcept {
    m_isWritten = writeAll(STDOUT_FILENO, m_text, m_length) && m_isWritten;
    m_length = 0;
    return m_isWritten;
}

void complain(const char* text) noexcept {
    writeAll(STDERR_FILENO, text, strlen(text));
}

} // namespace boot
