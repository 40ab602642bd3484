// Connections to the control socket, from several threads.

#include "process/ControlConnection.h"
#include "EventServer.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstddef> // wpa_ctrl.h needs it
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

#include <wpa_ctrl.h>

using test::EventServer;

namespace {

constexpr std::size_t THREADS = 4;
constexpr int ROUNDS = 10'000;

std::string socketOf(const cli::ControlConnection& connection) {
    sockaddr_un address{};
    socklen_t size = sizeof address;
    getsockname(wpa_ctrl_get_fd(connection.get()), reinterpret_cast<sockaddr*>(&address), &size);
    return address.sun_path;
}

// Of two connections with one name, the later one removes the socket of the earlier one.
void connectOften(std::atomic<bool>& isLost) {
    for (int round = 0; round < ROUNDS && !isLost; ++round) {
        const cli::ControlConnection connection = cli::openConnection(EventServer::PATH);
        std::this_thread::yield();
        if (access(socketOf(connection).c_str(), F_OK) != 0)
            isLost = true;
    }
}

TEST(ControlConnection, OfEachThreadHasASocketOfItsOwn) {
    const EventServer server;
    std::atomic<bool> isLost{false};
    std::array<std::thread, THREADS> threads;
    for (std::thread& thread : threads)
        thread = std::thread([&] { connectOften(isLost); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_FALSE(isLost);
}

} // namespace
