// A million calls. Memory, descriptors, threads, children and files must not grow.

#include "Calls.h"
#include "InProcessChild.h"
#include "Runs.h"
#include "Supplicant.h"
#include "Usage.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr unsigned int THREADS = 4;
constexpr std::uint32_t DEFAULT_CALLS = 1000000;
constexpr std::uint32_t SETTLING_SHARE = 4; // the first measurement is after this part of the calls

// Most calls only use memory.
stress::Calls allCalls() {
    stress::Calls all = stress::memoryCalls();
    for (stress::Call& call : all)
        call.weight *= 20;
    const stress::Calls commands = stress::commandCalls();
    all.insert(all.end(), commands.begin(), commands.end());
    return all;
}

std::string numbers() {
    return std::to_string(stress::Supplicant::get().adapterQueries()) + " adapter queries, " +
           std::to_string(stress::realChildren()) + " real children";
}

} // namespace

void stress::soak(char* arguments[]) {
    const stress::Job job = stress::Job::from("soak", DEFAULT_CALLS, arguments);
    stress::useRealChildren(job.real);
    stress::discardDumps();
    stress::Crew crew(job, allCalls(), THREADS, numbers);
    crew.run(job.count / SETTLING_SHARE, (job.seconds + SETTLING_SHARE - 1) / SETTLING_SHARE);
    const std::uint32_t settled = crew.done();
    stress::unloadAll();
    const stress::Usage early = stress::Usage::now();
    crew.run(job.count - job.count / SETTLING_SHARE, job.seconds);
    stress::expect(crew.done() > settled, "there was no time for more than the first quarter");
    stress::unloadAll();
    const stress::Usage late = stress::Usage::now();
    std::printf("soak: after a quarter: %s\nsoak: at the end:      %s\n", early.text().c_str(),
                late.text().c_str());
    stress::expectFlat(early, late);
    std::printf("soak: passed: %u calls of %u threads, %s, %u s, seed %u\n", crew.done(), THREADS,
                numbers().c_str(), crew.seconds(), job.seed);
}
