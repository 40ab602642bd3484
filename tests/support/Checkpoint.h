#pragma once

#include "platform/FileDescriptor.h"

#include <string>

namespace test {

/// A point at which another process waits until the test lets it continue, such as a stand-in with
/// pausesAt(). The library kills a client that waits for 5 s.
class Checkpoint {
public:
    /// @param path  of a named pipe that is made here
    explicit Checkpoint(std::string path);
    ~Checkpoint();

    Checkpoint(const Checkpoint&) = delete;
    Checkpoint& operator=(const Checkpoint&) = delete;

    const std::string& path() const { return m_path; }

    /// Waits until a process has arrived.
    void awaitArrival();

    /// Lets the process continue for which awaitArrival() returned.
    void letGo();

private:
    std::string m_path;
    platform::FileDescriptor m_writer;
};

} // namespace test
