#include "platform/PlatformUtil.h"
#include "support/RecordedPlatform.h"

#include <chrono>
#include <thread>

// A sleep of less than a second is a pause between two looks at a child, on a system without early
// ends.
void PlatformUtil::sleep(int milliseconds) noexcept {
    test::RecordedPlatform::note("sleep " + std::to_string(milliseconds));
    if (milliseconds < 1000)
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    else
        test::RecordedPlatform::passSleep();
}
