#include "BareCommand.h"

#include "platform/FileDescriptor.h"
#include "platform/PlatformUtil.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

using platform::FileDescriptor;

namespace bench {

namespace {

constexpr const char* RESULT = "/tmp/bench_result";
constexpr int POLL_PAUSE_MS = 50;

std::vector<char*> argumentVector(const std::string& program, const Arguments& arguments) {
    std::vector<char*> vector{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        vector.push_back(const_cast<char*>(argument.c_str()));
    vector.push_back(nullptr);
    return vector;
}

pid_t start(const std::string& program, const Arguments& arguments) {
    const FileDescriptor output(open(RESULT, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0440));
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output.number(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.number(), STDERR_FILENO);
    pid_t child = -1;
    const int error = posix_spawn(&child, program.c_str(), &actions, nullptr,
                                  argumentVector(program, arguments).data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("cannot start " + program);
    return child;
}

int await(pid_t child, Wait wait) {
    int status = -1;
    const int options = wait == Wait::ForTheEnd ? 0 : WNOHANG;
    while (waitpid(child, &status, options) == 0)
        PlatformUtil::sleep(POLL_PAUSE_MS);
    return status;
}

std::string takeResult() {
    std::string text;
    char piece[4096];
    const FileDescriptor file(open(RESULT, O_RDONLY | O_CLOEXEC));
    unlink(RESULT);
    for (ssize_t size = 0; (size = read(file.number(), piece, sizeof(piece))) > 0;)
        text.append(piece, static_cast<std::size_t>(size));
    return text;
}

} // namespace

std::string runBare(const std::string& program, const Arguments& arguments, Wait wait) {
    const int status = await(start(program, arguments), wait);
    const std::string text = takeResult();
    if (status != 0)
        throw std::runtime_error(program + " failed: " + text);
    return text;
}

} // namespace bench
