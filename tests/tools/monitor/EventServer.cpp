#include "EventServer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

namespace test {
namespace {

sockaddr_un ownAddress() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, EventServer::PATH.data(), EventServer::PATH.size());
    return address;
}

} // namespace

const std::string EventServer::FOLDER = "/run/wpa_supplicant";
const std::string EventServer::PATH = FOLDER + "/wlan0";

EventServer::EventServer() {
    std::filesystem::create_directories(FOLDER);
    open();
}

EventServer::~EventServer() {
    std::filesystem::remove_all(FOLDER);
}

void EventServer::open() {
    m_socket = platform::FileDescriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_un address = ownAddress();
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    EXPECT_EQ(bind(m_socket.number(), generic, sizeof address), 0) << std::strerror(errno);
}

void EventServer::fillQueue() {
    const platform::FileDescriptor sender(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_un address = ownAddress();
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    while (sendto(sender.number(), "PING", 4, MSG_DONTWAIT, generic, sizeof address) > 0) {
    }
    EXPECT_EQ(errno, EAGAIN) << std::strerror(errno);
}

void EventServer::startAgain() {
    std::filesystem::remove(PATH);
    open();
}

std::string EventServer::receive() {
    char command[256];
    m_listenerSize = sizeof m_listener;
    const ssize_t size = recvfrom(m_socket.number(), command, sizeof command, 0,
                                  reinterpret_cast<sockaddr*>(&m_listener), &m_listenerSize);
    EXPECT_GT(size, 0) << std::strerror(errno);
    return {command, static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

void EventServer::attach() {
    EXPECT_EQ(receive(), "ATTACH");
    send("OK\n");
}

void EventServer::send(const std::string& text) const {
    const auto* const listener = reinterpret_cast<const sockaddr*>(&m_listener);
    EXPECT_EQ(sendto(m_socket.number(), text.data(), text.size(), 0, listener, m_listenerSize),
              static_cast<ssize_t>(text.size()))
        << std::strerror(errno);
}

} // namespace test
