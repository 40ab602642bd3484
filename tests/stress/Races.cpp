// Eight threads make random calls, among them unloads of the settings and the driver, while another
// process keeps saving. docs/testing.md describes how to run it and to repeat a run.

#include "Calls.h"
#include "InProcessChild.h"
#include "OtherProcess.h"
#include "Runs.h"
#include "Supplicant.h"
#include "Usage.h"
#include "settings/WifiHostSettings.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace {

constexpr unsigned int THREADS = 8;
constexpr std::uint32_t DEFAULT_CALLS = 100000;
constexpr std::chrono::minutes LONGEST_WAIT{5};

stress::Calls allCalls() {
    stress::Calls all = stress::lifetimeCalls();
    for (const stress::Calls& more : {stress::commandCalls(), stress::memoryCalls()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

std::string numbers() {
    const stress::Supplicant& supplicant = stress::Supplicant::get();
    return std::to_string(stress::unloads()) + " unloads and reloads, " +
           std::to_string(supplicant.refreshes()) + " reloads by the refresh thread, " +
           std::to_string(stress::realChildren()) + " real children";
}

// A short run may end before the refresh thread has received a save of the other process, which continues to
// save.
void awaitRefresh() {
    using Clock = std::chrono::steady_clock;
    WifiHostSettings::getInstance(nullptr);
    const Clock::time_point end = Clock::now() + LONGEST_WAIT;
    while (stress::Supplicant::get().refreshes() == 0) {
        stress::expect(Clock::now() < end,
                       "no save of the other process makes the settings reload");
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

} // namespace

void stress::races(char* arguments[]) {
    const stress::Job job = stress::Job::from("races", DEFAULT_CALLS, arguments);
    stress::useRealChildren(job.real);
    stress::discardDumps();
    const stress::OtherProcess saver({"--again"});
    stress::Crew crew(job, allCalls(), THREADS, numbers);
    crew.run(job.count, job.seconds);
    awaitRefresh();
    stress::unloadAll();
    std::printf("races: passed: %u calls of %u threads, %s, %u s, seed %u\n", crew.done(), THREADS,
                numbers().c_str(), crew.seconds(), job.seed);
}
