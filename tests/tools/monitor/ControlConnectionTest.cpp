// Connections to the control socket, from several threads.

#include "process/ControlConnection.h"
#include "EventServer.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <thread>

using test::EventServer;

namespace {

constexpr std::size_t THREADS = 8;
constexpr int ROUNDS = 300;

std::size_t socketCount() {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/tmp"))
        count += entry.is_socket() ? 1U : 0U;
    return count;
}

// Opens one connection in each thread, at the same time. Returns how many sockets they have.
std::size_t socketsOfConnections() {
    std::array<std::thread, THREADS> threads;
    std::array<cli::ControlConnection, THREADS> connections{{{nullptr, nullptr},
                                                             {nullptr, nullptr},
                                                             {nullptr, nullptr},
                                                             {nullptr, nullptr},
                                                             {nullptr, nullptr},
                                                             {nullptr, nullptr},
                                                             {nullptr, nullptr},
                                                             {nullptr, nullptr}}};
    std::atomic<bool> isBegun{false};
    for (std::size_t i = 0; i < THREADS; ++i) {
        threads[i] = std::thread([&, i] {
            while (!isBegun)
                std::this_thread::yield();
            connections[i] = cli::openConnection(EventServer::PATH);
        });
    }
    isBegun = true;
    for (std::thread& thread : threads)
        thread.join();
    return socketCount();
}

TEST(ControlConnection, OfEachThreadHasASocketOfItsOwn) {
    const EventServer server;
    for (int round = 0; round < ROUNDS; ++round)
        ASSERT_EQ(socketsOfConnections(), THREADS) << "in round " << round;
}

} // namespace
