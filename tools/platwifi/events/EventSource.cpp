#include "events/EventSource.h"

#include "checks/CheckFunctions.h"
#include "client/ControlSocket.h"
#include "events/EventParser.h"
#include "process/ControlConnection.h"
#include "values/Failure.h"

#include <array>
#include <cstddef> // wpa_ctrl.h needs it
#include <sys/stat.h>
#include <utility>

#include <wpa_ctrl.h>

namespace cli {
namespace {

using std::chrono::milliseconds;

// How often to look whether the supplicant still runs: its end closes no connection of a datagram socket.
constexpr milliseconds LIVENESS_PERIOD{1000};
constexpr std::size_t MAX_MESSAGE = 8192; // a longer one, such as one with a certificate, is cut

void throwIfBad(const Finding& finding) {
    if (finding.health == Health::BAD)
        throw Failure(finding.found + "; " + finding.toDo);
}

[[noreturn]] void throwCause(const std::string& iface) {
    throwIfBad(checkProcess(iface));
    throwIfBad(checkSocketOf(iface));
    throw Failure("no connection to the supplicant can be made for " + iface +
                  "; see that /tmp is writable and has room");
}

milliseconds untilNextLook(EventSource::Clock::time_point deadline) {
    const auto now = EventSource::Clock::now();
    if (deadline <= now)
        return milliseconds(0);
    if (deadline - now >= LIVENESS_PERIOD)
        return LIVENESS_PERIOD;
    return std::chrono::ceil<milliseconds>(deadline - now);
}

} // namespace

EventSource::EventSource(std::string iface, const Cancellation& cancellation)
    : m_iface(std::move(iface)), m_path(controlSocketOf(m_iface)), m_cancellation(cancellation),
      m_identity(identityOf(m_path)), m_connection(openConnection(m_path)) {
    attach();
}

// Without a DETACH, whose reply a suspended supplicant would delay: it removes this listener when a message
// to it finds no socket.
EventSource::~EventSource() = default;

std::optional<EventSource::Identity> EventSource::identityOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

void EventSource::attach() {
    if (!m_connection)
        throwCause(m_iface);
    if (wpa_ctrl_attach(m_connection.get()) == 0)
        return;
    m_cancellation.check();
    throwIfBad(checkProcess(m_iface));
    throw Failure("the supplicant does not answer for " + m_iface +
                  "; wake it by kill -CONT and its process id, or restart it");
}

bool EventSource::isLost() const {
    return connectTo(m_path) != 0 || !(identityOf(m_path) == m_identity);
}

std::optional<Event> EventSource::receive() {
    std::array<char, MAX_MESSAGE> message{};
    std::size_t size = message.size();
    if (wpa_ctrl_recv(m_connection.get(), message.data(), &size) != 0)
        return std::nullopt;
    Event event = parseEvent(std::string(message.data(), size));
    m_history.complete(event);
    return event;
}

// It is lost or not before the wait: so what it sent before its end is read first.
std::optional<Event> EventSource::next(Clock::time_point deadline) {
    const int descriptor = wpa_ctrl_get_fd(m_connection.get());
    for (;;) {
        const bool hasEnded = isLost();
        const milliseconds time = hasEnded ? milliseconds(0) : untilNextLook(deadline);
        if (m_cancellation.waitForInput(descriptor, time)) {
            if (auto event = receive())
                return event;
        }
        if (hasEnded) {
            Event lost;
            lost.kind = Event::Kind::LOST;
            return lost;
        }
        if (Clock::now() >= deadline)
            return std::nullopt;
    }
}

} // namespace cli
