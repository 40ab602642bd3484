#include "OtherProcess.h"

#include <array>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

using platform::FileDescriptor;

namespace bench {
namespace {

struct Pipe {
    FileDescriptor out;
    FileDescriptor in;

    Pipe() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("cannot make a pipe");
        out = FileDescriptor(ends[0]);
        in = FileDescriptor(ends[1]);
    }
};

pid_t start(const char* program, const char* argument, const FileDescriptor& input,
            const FileDescriptor& output) {
    const char* const command[] = {program, argument, nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.number(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.number(), STDOUT_FILENO);
    pid_t id = -1;
    const int error =
        posix_spawn(&id, program, &actions, nullptr, const_cast<char* const*>(command), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error(std::string("cannot start ") + program);
    return id;
}

} // namespace

OtherProcess::OtherProcess(const char* program, const char* argument) {
    Pipe there;
    Pipe back;
    m_id = start(program, argument, there.out, back.in);
    m_toIt = std::move(there.in);
    m_fromIt = std::move(back.out);
}

OtherProcess::~OtherProcess() {
    m_toIt.close();
    waitpid(m_id, nullptr, 0);
}

void OtherProcess::send(const std::string& line) const {
    const std::string text = line + "\n";
    if (write(m_toIt.number(), text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("the other process has ended");
}

std::string OtherProcess::line() const {
    std::string line;
    char byte = '\n';
    while (read(m_fromIt.number(), &byte, 1) == 1 && byte != '\n')
        line += byte;
    return line;
}

void OtherProcess::awaitLine(const std::string& expected) const {
    if (line() != expected)
        throw std::runtime_error("the other process is not " + expected);
}

} // namespace bench
