// Eight threads make random calls, among them unloads of the settings and the driver, while another
// process keeps saving. docs/testing.md describes how to run it and to repeat a run.

#include "Calls.h"
#include "InProcessChild.h"
#include "OtherProcess.h"
#include "Runs.h"
#include "Supplicant.h"
#include "Usage.h"

#include <cstdio>

namespace {

constexpr unsigned int THREADS = 8;
constexpr std::uint32_t DEFAULT_CALLS = 100000;

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

} // namespace

void stress::races(char* arguments[]) {
    const stress::Job job = stress::Job::from("races", DEFAULT_CALLS, arguments);
    stress::useRealChildren(job.real);
    stress::discardDumps();
    const stress::OtherProcess saver({"--again"});
    stress::Crew crew(job, allCalls(), THREADS, numbers);
    crew.run(job.count, job.seconds);
    stress::unloadAll();
    stress::expect(stress::Supplicant::get().refreshes() > 0,
                   "no save of the other process has made the settings reload");
    std::printf("races: passed: %u calls of %u threads, %s, %u s, seed %u\n", crew.done(), THREADS,
                numbers().c_str(), crew.seconds(), job.seed);
}
