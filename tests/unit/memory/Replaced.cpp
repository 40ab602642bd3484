// What takes the place of functions of the library: the model of a supplicant, whose own allocations
// neither count nor fail, for children; and a refresh thread that ends at once, since thousands of
// processes wait for one.

#include "fuzz/ModelRunner.h"
#include "platform/Deadline.h"
#include "support/FailingAllocator.h"

class WifiUtil;

bool pausedLaunch(WifiUtil*, const char*, const char*, const char*, const char*, const char*,
                  const char*,
                  const char*) __asm__("__wrap__ZN8WifiUtil13launchProcessEPKcS1_S1_S1_S1_S1_S1_");

bool pausedLaunch(WifiUtil* /*util*/, const char* /*path*/, const char* command,
                  const char* interfaceArg, const char* arg1, const char* arg2, const char* arg3,
                  const char* resultFile) {
    const test::FailingAllocator::Pause pause;
    return fuzz::launchOnModel(command, interfaceArg, arg1, arg2, arg3, resultFile);
}

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(1) * seconds;
}
