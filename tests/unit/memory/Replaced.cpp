// Replaces two functions of the library: children are calls of a model of a supplicant, whose own allocations
// neither count nor fail; and the refresh thread ends at once, because thousands of processes wait for it.

#include "Paths.h"
#include "fuzz/ModelRunner.h"
#include "platform/PlatformUtil.h"
#include "support/FailingAllocator.h"
#include "support/TestTime.h"

#include <cstring>

namespace {

const test::TestTime quickTime([](test::TestTime& time) {
    time.deadlinesAre(std::chrono::milliseconds(1));
    time.sleepsAre(std::chrono::milliseconds(0));
});

} // namespace

#define RUN_CHILD "_ZN8platwifi8runChildER15pthread_mutex_tRKNS_12ArgumentListEPKcS6_"
bool realChild(PlatformMutex&, const platwifi::ArgumentList&, const char*,
               const char*) __asm__("__real_" RUN_CHILD);
bool modelChild(PlatformMutex&, const platwifi::ArgumentList&, const char*,
                const char*) __asm__("__wrap_" RUN_CHILD);

// The model is a supplicant, and no process lister.
bool modelChild(PlatformMutex& launchMutex, const platwifi::ArgumentList& arguments,
                const char* command, const char* resultFile) {
    if (std::strcmp(arguments.program(), platwifi::paths::CLIENT) != 0)
        return realChild(launchMutex, arguments, command, resultFile);
    const test::FailingAllocator::Pause pause;
    return fuzz::runOnModel(arguments, resultFile);
}
