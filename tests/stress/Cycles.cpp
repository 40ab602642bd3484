// Loads and unloads the settings many times. Each unload must end the refresh thread and detach from the
// shared block; memory, threads and descriptors must not grow.

#include "InProcessChild.h"
#include "Job.h"
#include "Runs.h"
#include "Usage.h"
#include "settings/WifiHostSettings.h"
#include "support/ThreadState.h"
#include "unit/watchdog/BlockView.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <chrono>
#include <cstdio>

namespace {

constexpr std::uint32_t DEFAULT_CYCLES = 400;
constexpr std::uint32_t SETTLING_CYCLES = 50;

std::uint32_t usersOf(const test::BlockView& block) {
    return block->attachCount;
}

void load() {
    char* name = nullptr;
    unsigned char count = 0;
    WifiHostSettings::getInstance(nullptr)->getWifiAdapters(&name, 1, &count);
    stress::expect(count == 1, "a load found no adapter");
    delete[] name;
    stress::expect(test::threadsNamed(test::REFRESH_THREAD).size() == 1,
                   "there is not one refresh thread after a load");
}

// Another user keeps the block while the settings are unloaded.
void cycle() {
    WifiHostSettingsWatchdog other;
    other.initialize();
    const test::BlockView block;
    load();
    stress::expect(usersOf(block) == 2, "a load did not join the shared block");
    stress::unloadAll();
    stress::expect(usersOf(block) == 1, "an unload did not detach from the shared block");
    stress::expect(!test::blockHasName(), "an unload did not remove the name of the shared block");
}

void cycleAlone() {
    load();
    stress::expect(test::blockHasName(), "a load made no shared block");
    stress::unloadAll();
    stress::expect(!test::blockHasName(),
                   "the last unload did not remove the name of the shared block");
}

} // namespace

void stress::cycles(char* arguments[]) {
    const stress::Job job = stress::Job::from("cycles", DEFAULT_CYCLES, arguments);
    stress::useRealChildren(job.real);
    stress::Usage early{};
    for (std::uint32_t i = 1; i <= job.count; ++i) {
        if (i % 2 == 0)
            cycle();
        else
            cycleAlone();
        if (i == std::min(SETTLING_CYCLES, job.count / 2))
            early = stress::Usage::now();
    }
    const stress::Usage late = stress::Usage::now();
    std::printf("cycles: early: %s\ncycles: late:  %s\n", early.text().c_str(),
                late.text().c_str());
    stress::expectFlat(early, late);
    std::printf("cycles: passed: %u cycles of load and unload\n", job.count);
}
