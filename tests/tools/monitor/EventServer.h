#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace test {

/// The control socket of wlan0, as a supplicant has it, with one listener for events. The test's own thread
/// serves it. The destructor removes the socket.
class EventServer {
public:
    static const std::string FOLDER;
    static const std::string PATH;

    EventServer();
    ~EventServer();

    EventServer(const EventServer&) = delete;
    EventServer& operator=(const EventServer&) = delete;

    /// Waits for the next command, and keeps the address of its sender. @return the command
    std::string receive();

    /// Waits for a listener, and accepts it.
    void attach();

    /// The path of the last sender's socket.
    std::string sender() const { return m_listener.sun_path; }

    /// Sends messages to this end until no further one has room.
    static void fillQueue();

    /// Sends a reply, or a message with its level, to the last sender.
    void send(const std::string& text) const;

    /// Ends as a killed supplicant does: the socket's file stays.
    void die() { m_socket.close(); }

    /// Begins anew at the same path, as another supplicant does, with no listener.
    void startAgain();

private:
    void open();

    platform::FileDescriptor m_socket;
    sockaddr_un m_listener{};
    socklen_t m_listenerSize = 0;
};

} // namespace test
