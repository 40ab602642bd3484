#pragma once

#include "platform/FileDescriptor.h"

#include <string>

namespace test {

/// A place in the work of another process where it stands still until it is let go on: a stand-in whose
/// answer says pausesAt(), say. The runner kills a client that stands for 5 s.
class Checkpoint {
public:
    /// @param path  of a named pipe that is made here
    explicit Checkpoint(std::string path);
    ~Checkpoint();

    Checkpoint(const Checkpoint&) = delete;
    Checkpoint& operator=(const Checkpoint&) = delete;

    const std::string& path() const { return m_path; }

    /// Waits until somebody stands there.
    void awaitArrival();

    /// Lets the one go on for whom awaitArrival() returned.
    void letGo();

private:
    std::string m_path;
    platform::FileDescriptor m_writer;
};

} // namespace test
