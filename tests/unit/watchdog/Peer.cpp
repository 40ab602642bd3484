#include "Peer.h"

#include "BlockView.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace test {
namespace {

using platform::FileDescriptor;

std::string textOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The state letter of the process, such as 'R' for running.
char stateOf(pid_t process) {
    const std::string text = textOf("/proc/" + std::to_string(process) + "/stat");
    const auto name = text.rfind(") ");
    return name == std::string::npos ? '?' : text[name + 2];
}

} // namespace

Peer::Peer() {
    int ends[2];
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    const FileDescriptor theirs(ends[0]);
    m_socket = FileDescriptor(ends[1]);
    const char* const command[] = {TEST_EMULATOR PEER_PROGRAM, nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, theirs.number(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, theirs.number(), STDOUT_FILENO);
    EXPECT_EQ(posix_spawnp(&m_id, command[0], &actions, nullptr, const_cast<char* const*>(command),
                           environ),
              0);
    posix_spawn_file_actions_destroy(&actions);
}

Peer::~Peer() {
    if (m_id == -1)
        return;
    m_socket.close();
    int status = -1;
    EXPECT_EQ(waitpid(m_id, &status, 0), m_id);
    EXPECT_EQ(status, 0);
}

std::string Peer::ask(const std::string& command, unsigned int number) {
    send(command, number);
    return answer();
}

void Peer::send(const std::string& command, unsigned int number) {
    const std::string line = command + " " + std::to_string(number) + "\n";
    EXPECT_EQ(::send(m_socket.number(), line.data(), line.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(line.size()));
}

std::string Peer::answer() {
    std::string text;
    char byte = '\n';
    while (read(m_socket.number(), &byte, 1) == 1 && byte != '\n')
        text += byte;
    return text;
}

// The peer answers immediately before it waits.
void Peer::beginWait() {
    EXPECT_EQ(ask("wait", 100), "waiting");
    while (stateOf(m_id) != 'S')
        std::this_thread::yield();
}

void Peer::awaitMapping() const {
    const std::string path = "/proc/" + std::to_string(m_id) + "/maps";
    while (textOf(path).find(BLOCK_PATH) == std::string::npos)
        std::this_thread::yield();
}

void Peer::kill() {
    EXPECT_EQ(::kill(m_id, SIGKILL), 0);
    EXPECT_EQ(waitpid(m_id, nullptr, 0), m_id);
    m_id = -1;
}

JoinedPeer::JoinedPeer() {
    EXPECT_EQ(ask("initialize"), "1");
}

} // namespace test
