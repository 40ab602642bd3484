#pragma once

#include "events/ConnectionHistory.h"
#include "events/Event.h"
#include "process/Cancellation.h"
#include "process/ControlConnection.h"

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>

namespace cli {

/// The events of an interface, from the control socket of the supplicant. It gets every event from its
/// construction on, so a command that waits for the outcome of a request first constructs the source, then
/// makes the request, and then reads events up to its deadline:
///
///     EventSource events(host.iface(), context.interrupt);
///     connectToNetwork(...);
///     while (const auto event = events.next(deadline))
///         ...                                          // ends at LOST, too
///
/// For one thread. Needs a socket of its own in /tmp, which the destructor removes.
class EventSource {
public:
    using Clock = std::chrono::steady_clock;

    /// Attaches to the supplicant. Takes up to 10 seconds if the supplicant is suspended.
    /// @param iface  an interface that the supplicant serves
    /// @throws Failure with the cause and the next step if the supplicant cannot be reached
    EventSource(std::string iface, const Cancellation& cancellation);
    ~EventSource();

    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    /// Waits for the next event. After TERMINATING or LOST it returns LOST at once, so the caller ends there.
    /// @param deadline  when to stop waiting; an event that has arrived before is returned also later
    /// @return nothing at the deadline
    /// @throws Interrupted as soon as the operation is cancelled
    std::optional<Event> next(Clock::time_point deadline);

private:
    /// Identifies a socket: a supplicant that starts anew makes another one at the same path.
    struct Identity {
        dev_t device;
        ino_t node;
        friend bool operator==(const Identity& one, const Identity& other) {
            return one.device == other.device && one.node == other.node;
        }
    };

    static std::optional<Identity> identityOf(const std::string& path);

    void attach();
    bool isLost() const;
    std::optional<Event> receive();

    const std::string m_iface;
    const std::string m_path; ///< of the control socket
    const Cancellation& m_cancellation;
    const std::optional<Identity> m_identity;
    const ControlConnection m_connection;
    ConnectionHistory m_history;
};

} // namespace cli
