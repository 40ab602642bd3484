#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace test {

/// Another process with a watchdog of its own, see peer.cpp for what it understands. It ends with this
/// object, which expects it to end well.
class Peer {
public:
    Peer();
    ~Peer();

    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    /// Says it and waits for the answer.
    std::string ask(const std::string& command, unsigned int number = 0);

    void say(const std::string& command, unsigned int number = 0);
    std::string answer();

    /// Makes it wait for the signal to reload, for long, and returns when it does. answer() tells
    /// what the wait gave.
    void beginWait();

    /// Waits until it has mapped what has the name of the block.
    void awaitMapping() const;

    /// Ends it on the spot.
    void kill();

    pid_t id() const { return m_id; }

private:
    platform::FileDescriptor m_talk;
    pid_t m_id = -1;
};

} // namespace test
