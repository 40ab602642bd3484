#include "client/Question.h"

#include "client/ClientReply.h"
#include "client/ControlSocket.h"
#include "platform/Deadline.h"
#include "platform/Environment.h"
#include "process/ControlConnection.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstddef> // wpa_ctrl.h needs it
#include <cstring>
#include <poll.h>
#include <sys/socket.h>

#include <wpa_ctrl.h>

namespace cli {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr unsigned int MOST_SECONDS = 5; // as long as a child process may take
constexpr std::size_t REPLY_SIZE = 4096; // of the client, with a NUL

std::string requestFor(const char* command, const char* argument) {
    std::string request;
    for (const char* letter = command; *letter; ++letter)
        request += static_cast<char>(std::toupper(static_cast<unsigned char>(*letter)));
    return argument ? request + ' ' + argument : request;
}

bool awaitState(int descriptor, short state, Clock::time_point deadline) {
    pollfd connection{descriptor, state, 0};
    int result = 0;
    do {
        const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
        result = poll(&connection, 1, std::max(static_cast<int>(left.count()), 0));
    } while (result < 0 && errno == EINTR);
    return result > 0;
}

// The supplicant's queue may be full.
bool send(int descriptor, const std::string& request, Clock::time_point deadline) {
    while (awaitState(descriptor, POLLOUT, deadline)) {
        if (::send(descriptor, request.data(), request.size(), MSG_DONTWAIT | MSG_NOSIGNAL) >= 0)
            return true;
        if (errno != EAGAIN && errno != EINTR)
            return false;
    }
    return false;
}

// Not by wpa_ctrl_request(), which waits for twice as long. A NUL ends the reply, as it does for the client.
std::string ask(wpa_ctrl* connection, const std::string& request) {
    const auto deadline = platform::deadlineAfter(MOST_SECONDS);
    const int descriptor = wpa_ctrl_get_fd(connection);
    std::array<char, REPLY_SIZE> reply{};
    std::size_t size = reply.size() - 1;
    const bool isAnswered = send(descriptor, request, deadline) &&
                            awaitState(descriptor, POLLIN, deadline) &&
                            wpa_ctrl_recv(connection, reply.data(), &size) == 0;
    return isAnswered ? reply.data() : "";
}

std::string withoutEnd(std::string text) {
    text.erase(text.find_last_not_of(" \n") + 1);
    return text;
}

} // namespace

std::optional<std::string> askDirectly(const std::string& iface, const char* command,
                                       const char* argument) {
    if (platform::environmentValue("PLATFORM_BOOT_DIR"))
        return std::nullopt;
    const ControlConnection connection = openConnection(controlSocketOf(iface));
    if (!connection)
        return std::nullopt;
    return withoutEnd(ask(connection.get(), requestFor(command, argument)));
}

std::string askSupplicant(const std::string& iface, const char* command, const char* argument) {
    if (auto reply = askDirectly(iface, command, argument))
        return *std::move(reply);
    return clientReply(iface, command, argument);
}

} // namespace cli
