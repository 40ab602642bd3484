#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace bench {

/// A program of this build as a child, with which this process exchanges lines. It must end when its input ends; the
/// destructor waits for that.
class OtherProcess {
public:
    /// @param argument  null for none
    /// @throws std::runtime_error if it cannot be started
    explicit OtherProcess(const char* program, const char* argument = nullptr);
    ~OtherProcess();

    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    /// Sends a line to it.
    /// @throws std::runtime_error if it has ended
    void send(const std::string& line) const;

    /// Waits for its next line; an empty one if it has ended.
    std::string line() const;

    /// Waits for this line.
    /// @throws std::runtime_error if it prints another one
    void awaitLine(const std::string& expected) const;

    pid_t id() const { return m_id; }

private:
    platform::FileDescriptor m_toIt;
    platform::FileDescriptor m_fromIt;
    pid_t m_id = -1;
};

} // namespace bench
