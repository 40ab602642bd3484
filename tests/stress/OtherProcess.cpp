#include "OtherProcess.h"

#include "Job.h"

#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace stress {

OtherProcess::OtherProcess(const std::vector<std::string>& arguments) {
    const std::string parent = std::to_string(getpid());
    std::vector<char*> words{const_cast<char*>(SAVER_PROGRAM), const_cast<char*>(parent.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    if (posix_spawn(&m_id, SAVER_PROGRAM, nullptr, nullptr, words.data(), environ) != 0)
        fail(std::string("cannot start ") + SAVER_PROGRAM);
}

OtherProcess::~OtherProcess() {
    kill();
}

void OtherProcess::signal(int number) const {
    if (::kill(m_id, number) != 0)
        fail("a process cannot be sent a signal");
}

void OtherProcess::kill() {
    if (m_id == -1)
        return;
    expectAlive();
    ::kill(m_id, SIGKILL);
    waitpid(m_id, nullptr, 0);
    m_id = -1;
}

void OtherProcess::awaitEnd() {
    int status = -1;
    expect(waitpid(m_id, &status, 0) == m_id, "a process cannot be waited for");
    m_id = -1;
    expect(status == 0, "the exit status of a process is not 0");
}

void OtherProcess::expectAlive() {
    int status = 0;
    if (waitpid(m_id, &status, WNOHANG) == 0)
        return;
    m_id = -1;
    fail("a process that saves ended by itself, with status " + std::to_string(status));
}

} // namespace stress
