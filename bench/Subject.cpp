#include "Subject.h"

#include <array>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

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

pid_t start(const char* program, const char* role, const FileDescriptor& input,
            const FileDescriptor& output) {
    const char* const command[] = {program, role, nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.number(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.number(), STDOUT_FILENO);
    pid_t id = -1;
    const int error =
        posix_spawn(&id, command[0], &actions, nullptr, const_cast<char* const*>(command), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error(std::string("cannot start ") + command[0]);
    return id;
}

// The sum of the numbers in all lines that begin with the name and a colon.
double sumInFile(const std::filesystem::path& path, const std::string& name) {
    std::ifstream file(path);
    double sum = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            sum += std::stod(line.substr(name.size() + 1));
    }
    return sum;
}

std::filesystem::path folderOf(pid_t process) {
    return "/proc/" + std::to_string(process);
}

} // namespace

Subject::Subject(const char* role, const char* program) {
    Pipe there;
    Pipe back;
    m_id = start(program, role, there.out, back.in);
    m_toIt = std::move(there.in);
    m_fromIt = std::move(back.out);
    back.in.close();
    awaitLine("ready");
}

Subject::~Subject() {
    m_toIt.close();
    waitpid(m_id, nullptr, 0);
}

void Subject::begin() {
    if (write(m_toIt.number(), "\n", 1) != 1)
        throw std::runtime_error("the other process has ended");
    awaitLine("begun");
}

void Subject::awaitLine(const std::string& expected) const {
    std::string line;
    char byte = '\n';
    while (read(m_fromIt.number(), &byte, 1) == 1 && byte != '\n')
        line += byte;
    if (line != expected)
        throw std::runtime_error("the other process is not " + expected);
}

double Subject::switches() const {
    double sum = 0;
    for (const auto& thread : std::filesystem::directory_iterator(folderOf(m_id) / "task")) {
        sum += sumInFile(thread.path() / "status", "voluntary_ctxt_switches");
        sum += sumInFile(thread.path() / "status", "nonvoluntary_ctxt_switches");
    }
    return sum;
}

double Subject::processorTime() const {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(m_id, &clock) != 0 || clock_gettime(clock, &time) != 0)
        throw std::runtime_error("the processor time of the other process is not known");
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Subject::memory(const std::string& name) const {
    return sumInFile(folderOf(m_id) / "smaps_rollup", name) * 1024;
}

} // namespace bench
