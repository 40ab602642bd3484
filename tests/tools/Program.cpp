#include "Program.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using platform::FileDescriptor;

namespace test {
namespace {

FileDescriptor emptyFile() {
    FileDescriptor file(memfd_create("stream", MFD_CLOEXEC));
    EXPECT_TRUE(file.isOpen());
    return file;
}

std::string textOf(const FileDescriptor& file) {
    std::string text;
    char bytes[4096];
    ssize_t size = 0;
    while ((size = pread(file.number(), bytes, sizeof bytes, static_cast<off_t>(text.size()))) > 0)
        text.append(bytes, static_cast<std::size_t>(size));
    return text;
}

// What the program itself wrote: the emulator adds a line when a signal ends the program with a core file.
std::string ownErrors(std::string text) {
#ifdef TEST_EMULATOR
    const auto line = text.find("qemu: uncaught target signal");
    if (line != std::string::npos)
        text.erase(line, text.find('\n', line) - line + 1);
#endif
    return text;
}

// In the child, between fork and exec.
void setStream(int stream, int descriptor) {
    if (descriptor == CLOSED)
        close(stream);
    else
        dup2(descriptor, stream);
}

[[noreturn]] void become(const char* path, char* const arguments[], Streams streams) {
    setsid();
    setStream(STDIN_FILENO, streams.in);
    setStream(STDOUT_FILENO, streams.out);
    setStream(STDERR_FILENO, streams.err);
    ioctl(STDIN_FILENO, TIOCSCTTY, 0); // fails if it is no terminal
    execv(path, arguments);
    _exit(127);
}

// Whether a signal is pending for a process.
bool isPending(pid_t process, int signal) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("ShdPnd:", 0) == 0)
            return (std::stoull(line.substr(7), nullptr, 16) >> (signal - 1) & 1U) != 0;
    }
    return false;
}

} // namespace

FileDescriptor fileWith(const std::string& text) {
    FileDescriptor file = emptyFile();
    EXPECT_EQ(write(file.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    lseek(file.number(), 0, SEEK_SET);
    return file;
}

Program::Program(const Arguments& arguments, Streams streams, const char* path)
    : m_out(emptyFile()), m_err(emptyFile()) {
    const FileDescriptor nothing = emptyFile();
    std::vector<const char*> words{"platwifi"};
    for (const std::string& argument : arguments)
        words.push_back(argument.c_str());
    words.push_back(nullptr);
    const Streams given{streams.in == CAPTURED ? nothing.number() : streams.in,
                        streams.out == CAPTURED ? m_out.number() : streams.out,
                        streams.err == CAPTURED ? m_err.number() : streams.err};
    m_id = fork();
    if (m_id == 0)
        become(path, const_cast<char* const*>(words.data()), given);
}

Program::~Program() {
    if (m_id == -1)
        return;
    kill(m_id, SIGKILL);
    waitpid(m_id, nullptr, 0);
}

void Program::signal(int signal) const {
    EXPECT_EQ(kill(m_id, signal), 0);
    while (isPending(m_id, signal))
        std::this_thread::yield();
}

Ending Program::end() {
    int status = 0;
    EXPECT_EQ(waitpid(m_id, &status, 0), m_id);
    m_id = -1;
    return {WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status), textOf(m_out),
            ownErrors(textOf(m_err))};
}

bool Program::hasEnded() const {
    siginfo_t end{};
    return waitid(P_PID, static_cast<id_t>(m_id), &end, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           end.si_pid == m_id;
}

Ending platwifi(const Arguments& arguments, const std::string& input) {
    const FileDescriptor file = fileWith(input);
    return platwifi(arguments, Streams{file.number()});
}

Ending platwifi(const Arguments& arguments, Streams streams) {
    return Program(arguments, streams).end();
}

Ending quickPlatwifi(const Arguments& arguments, Streams streams) {
    return Program(arguments, streams, QUICK_PLATWIFI_PROGRAM).end();
}

} // namespace test
