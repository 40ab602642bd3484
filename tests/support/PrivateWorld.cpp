#include "support/PrivateWorld.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <vector>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace test {
namespace {

constexpr const char* INSIDE = "PLATWIFI_PRIVATE_WORLD"; // set by the script
constexpr int SKIPPED = 77;

} // namespace

void enterPrivateWorld(char* arguments[]) {
    if (std::getenv(INSIDE))
        return;
    char self[PATH_MAX] = "";
    static_cast<void>(!readlink("/proc/self/exe", self, sizeof(self) - 1));
    std::vector<const char*> command{PRIVATE_WORLD_SCRIPT, TEST_EMULATOR self};
    for (char** argument = arguments + 1; *argument; ++argument)
        command.push_back(*argument);
    command.push_back(nullptr);
    execv(command[0], const_cast<char* const*>(command.data()));
    std::fprintf(stderr, "skipped: cannot start %s: %s\n", command[0], std::strerror(errno));
    std::exit(SKIPPED);
}

} // namespace test
