#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <termios.h>

namespace test {

/// A terminal: what is written to its own end can be read at the other one.
class TerminalPair {
public:
    explicit TerminalPair(unsigned short columns);

    /// The end that a program has for its standard streams.
    int ownEnd() const { return m_own.number(); }

    void setWidth(unsigned short columns) const;

    /// What a user types.
    void type(const std::string& text) const;

    /// Reads until this has been written. @return all that was read so far
    const std::string& readUntil(const std::string& text);

    /// Reads what there is once nobody writes any more, that is after closeOwnEnd() and the end of
    /// every program. @return all that was read
    const std::string& readToEnd();

    void closeOwnEnd() { m_own.close(); }

    termios settings() const;

private:
    bool readMore();

    platform::FileDescriptor m_other;
    platform::FileDescriptor m_own;
    std::string m_read;
};

} // namespace test
