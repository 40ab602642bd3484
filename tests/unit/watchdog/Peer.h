#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace test {

/// Another process with a watchdog of its own. peer.cpp has its commands. The destructor ends the
/// process and expects exit status 0.
class Peer {
public:
    Peer();
    ~Peer();

    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    /// Sends a command and waits for the answer.
    std::string ask(const std::string& command, unsigned int number = 0);

    /// Sends a command without waiting.
    void send(const std::string& command, unsigned int number = 0);

    /// Waits for the next answer.
    std::string answer();

    /// Makes it wait for the signal to reload, for 100 s at most, and returns when it waits.
    /// answer() returns the result of the wait.
    void beginWait();

    /// Waits until it has mapped the object with the name of the block.
    void awaitMapping() const;

    /// Kills it.
    void kill();

    pid_t id() const { return m_id; }

private:
    platform::FileDescriptor m_socket;
    pid_t m_id = -1;
};

/// A process that uses the block.
class JoinedPeer : public Peer {
public:
    JoinedPeer();
};

} // namespace test
