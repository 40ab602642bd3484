#include "Terminal.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

using platform::FileDescriptor;

namespace test {

TerminalPair::TerminalPair(unsigned short columns) {
    int other = -1;
    int own = -1;
    EXPECT_EQ(openpty(&other, &own, nullptr, nullptr, nullptr), 0);
    m_other = FileDescriptor(other);
    m_own = FileDescriptor(own);
    fcntl(other, F_SETFD, FD_CLOEXEC);
    fcntl(own, F_SETFD, FD_CLOEXEC);
    setWidth(columns);
    keepOutputAtInterrupts();
}

// The system sends the signal of Ctrl-C first and discards output then: what a program prints at once could be
// lost.
void TerminalPair::keepOutputAtInterrupts() const {
    termios changed = settings();
    changed.c_lflag |= NOFLSH;
    EXPECT_EQ(tcsetattr(m_other.number(), TCSANOW, &changed), 0);
}

void TerminalPair::setWidth(unsigned short columns) const {
    const winsize size{24, columns, 0, 0};
    EXPECT_EQ(ioctl(m_other.number(), TIOCSWINSZ, &size), 0);
}

void TerminalPair::type(const std::string& text) const {
    EXPECT_EQ(write(m_other.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

const std::string& TerminalPair::readUntil(const std::string& text) {
    while (m_read.find(text) == std::string::npos && readMore()) {
    }
    EXPECT_NE(m_read.find(text), std::string::npos) << m_read;
    return m_read;
}

const std::string& TerminalPair::readToEnd() {
    while (readMore()) {
    }
    return m_read;
}

// read() fails when no descriptor of the own end is open.
bool TerminalPair::readMore() {
    char bytes[4096];
    const ssize_t size = read(m_other.number(), bytes, sizeof bytes);
    if (size > 0)
        m_read.append(bytes, static_cast<std::size_t>(size));
    return size > 0;
}

termios TerminalPair::settings() const {
    termios settings{};
    EXPECT_EQ(tcgetattr(m_other.number(), &settings), 0);
    return settings;
}

} // namespace test
