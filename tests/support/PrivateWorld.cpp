#include "support/PrivateWorld.h"

#include <cerrno>
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

constexpr const char* INSIDE = "PLATWIFI_PRIVATE_WORLD";
constexpr int SKIPPED = 77;

// The test program comes as "$0" "$@". A failing mount must not look like a failing test.
constexpr const char* SET_UP = "for place in /tmp /run /dev/shm; do "
                               "mount -t tmpfs -o mode=1777 private $place || exit 77; done; "
                               "exec \"$0\" \"$@\"";

} // namespace

void enterPrivateWorld(char* arguments[]) {
    if (std::getenv(INSIDE))
        return;
    setenv(INSIDE, "yes", 1);
    std::vector<const char*> command{"unshare", "--mount"};
    if (geteuid() != 0)
        command.insert(command.end(), {"--user", "--map-root-user"});
    command.insert(command.end(), {"sh", "-c", SET_UP, TEST_EMULATOR});
    // By its real path: under /proc/self/exe the shell would find itself.
    std::vector<char> self(4096, '\0');
    if (readlink("/proc/self/exe", self.data(), self.size() - 1) > 0)
        command.push_back(self.data());
    for (char** argument = arguments + 1; *argument; ++argument)
        command.push_back(*argument);
    command.push_back(nullptr);
    execvp(command[0], const_cast<char* const*>(command.data()));
    std::fprintf(stderr, "skipped: no private mount namespace: %s\n", std::strerror(errno));
    std::exit(SKIPPED);
}

} // namespace test
