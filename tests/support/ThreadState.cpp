#include "support/ThreadState.h"

#include <fstream>
#include <string>

namespace test {

bool isAsleep(int threadId) {
    std::ifstream file("/proc/self/task/" + std::to_string(threadId) + "/stat");
    std::string text;
    std::getline(file, text);
    const auto name = text.rfind(')');
    return name != std::string::npos && text.compare(name, 3, ") S") == 0;
}

} // namespace test
