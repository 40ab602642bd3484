// A program that links this starts the client once for each different command. The same command gets the
// recorded answer from then on, without a child, so that a thousand loads take seconds.

#include "platform/FileDescriptor.h"
#include "platform/Spawn.h"

#include <cstdlib>
#include <dlfcn.h>
#include <map>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int FIRST_ID = 1 << 30; // larger than any process id
constexpr const char* SPAWN_START = "_ZN5Spawn5startEPKcPKS1_i";

struct Answer {
    std::string output;
    int status = 0;
};

// The driver runs one command at a time, so these need no lock.
std::map<std::string, Answer> answers;
int lastStatus = 0;

std::string keyOf(const char* const arguments[]) {
    std::string key;
    for (; *arguments; ++arguments)
        (key += *arguments) += '\n';
    return key;
}

std::string contentsOf(const platform::FileDescriptor& file) {
    std::string text(static_cast<std::size_t>(lseek(file.number(), 0, SEEK_END)), '\0');
    if (pread(file.number(), text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
        std::abort();
    return text;
}

Answer ask(const char* path, const char* const arguments[]) {
    using Start = int (*)(const char*, const char* const[], int);
    static const auto start = reinterpret_cast<Start>(dlsym(RTLD_NEXT, SPAWN_START));
    const platform::FileDescriptor output(memfd_create("answer", MFD_CLOEXEC));
    const pid_t child = start(path, arguments, output.number());
    Answer answer;
    if (child == -1 || wait4(child, &answer.status, 0, nullptr) != child)
        std::abort();
    answer.output = contentsOf(output);
    return answer;
}

} // namespace

int Spawn::start(const char* path, const char* const arguments[], int output) noexcept {
    const auto [found, isNew] = answers.try_emplace(keyOf(arguments));
    Answer& answer = found->second;
    if (isNew)
        answer = ask(path, arguments);
    if (write(output, answer.output.data(), answer.output.size()) == -1)
        std::abort();
    lastStatus = answer.status;
    return FIRST_ID;
}

// The platform library calls this in place of the function of the system.
extern "C" __attribute__((visibility("default"))) pid_t waitpid(pid_t process, int* status,
                                                                int options) {
    if (process < FIRST_ID)
        return wait4(process, status, options, nullptr);
    *status = lastStatus;
    return process;
}
