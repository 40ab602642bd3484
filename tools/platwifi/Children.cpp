#include "Children.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <vector>

namespace cli {
namespace {

// Each thread has a list of the children that it started.
std::vector<pid_t> children() {
    std::vector<pid_t> found;
    std::error_code error;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task", error)) {
        std::ifstream list(thread.path() / "children");
        for (pid_t child = 0; list >> child;)
            found.push_back(child);
    }
    return found;
}

} // namespace

// Somebody else may be waiting for the child, too: then it is not ours to reap.
void endChildren() {
    for (const pid_t child : children()) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
}

} // namespace cli
