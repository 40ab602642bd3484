#include "support/ThreadState.h"

#include <filesystem>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace test {
namespace {

// Empty for a thread that has ended.
std::string firstLine(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

} // namespace

int ownThread() {
    return gettid();
}

bool isAsleep(int thread) {
    const std::string text = firstLine("/proc/self/task/" + std::to_string(thread) + "/stat");
    const auto name = text.rfind(')');
    return name != std::string::npos && text.compare(name, 3, ") S") == 0;
}

std::vector<int> threadsNamed(const std::string& name) {
    std::vector<int> ids;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
        if (firstLine(entry.path() / "comm") == name)
            ids.push_back(std::stoi(entry.path().filename()));
    }
    return ids;
}

void awaitNoThreadNamed(const std::string& name) {
    while (!threadsNamed(name).empty())
        std::this_thread::yield();
}

} // namespace test
