#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <termios.h>

namespace test {

/// A pseudoterminal. The program under test has its own end, the test the other one.
class TerminalPair {
public:
    explicit TerminalPair(unsigned short columns);

    /// The descriptor for the standard streams of a program.
    int ownEnd() const { return m_own.number(); }

    void setWidth(unsigned short columns) const;

    /// Types keys.
    void type(const std::string& text) const;

    /// Reads until this text was written. @return all that was read so far
    const std::string& readUntil(const std::string& text);

    /// Reads until no descriptor of the own end is open: to be called after closeOwnEnd(), and returns
    /// when the programs have ended. @return all that was read
    const std::string& readToEnd();

    void closeOwnEnd() { m_own.close(); }

    termios settings() const;

private:
    bool readMore();
    void keepOutputAtInterrupts() const;

    platform::FileDescriptor m_other;
    platform::FileDescriptor m_own;
    std::string m_read;
};

} // namespace test
