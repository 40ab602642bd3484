#include "platform/Spawn.h"

#include "common/SpawnPlan.h"

#include <cerrno>
#include <exception>

namespace {

int spawn(const platform::SpawnPlan& plan) {
    pid_t child = -1;
    const int error = plan.run(child);
    if (error == 0)
        return child;
    plan.warn(error);
    errno = error;
    return -1;
}

} // namespace

int Spawn::start(const char* path, const char* const arguments[], int output) noexcept {
    if (!path || !arguments) {
        errno = EINVAL;
        return -1;
    }
    try {
        return spawn(platform::SpawnPlan(path, arguments, output));
    } catch (const std::exception&) {
        errno = ENOMEM;
        return -1;
    }
}
