#include "Contest.h"

#include <benchmark/benchmark.h>

#include <iostream>
#include <string>

namespace bench {
namespace {

// Collects the times instead of printing them.
class Collector : public benchmark::BenchmarkReporter {
public:
    explicit Collector(Timings& timings) : m_timings(timings) {}

    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            m_timings[std::stoul(run.run_name.function_name)].push_back(
                run.real_accumulated_time / static_cast<double>(run.iterations));
    }

private:
    Timings& m_timings;
};

void repeat(benchmark::State& state, const Contestant& contestant) {
    for (auto _ : state) {
        if (contestant.prepare) {
            state.PauseTiming();
            contestant.prepare();
            state.ResumeTiming();
        }
        contestant.run();
    }
}

void enrol(std::size_t number, const Contestant& contestant, const Pace& pace) {
    benchmark::internal::Benchmark* const entry = benchmark::RegisterBenchmark(
        std::to_string(number).c_str(),
        [contestant](benchmark::State& state) { repeat(state, contestant); });
    entry->UseRealTime();
    if (pace.seconds > 0)
        entry->MinTime(pace.seconds);
    else
        entry->Iterations(1);
}

} // namespace

Timings compete(const std::vector<Contestant>& contestants, Pace pace) {
    Timings timings(contestants.size());
    Collector collector(timings);
    benchmark::ClearRegisteredBenchmarks();
    for (std::size_t i = 0; i < contestants.size(); ++i)
        enrol(i, contestants[i], pace);
    for (int round = 0; round < pace.rounds; ++round) {
        benchmark::RunSpecifiedBenchmarks(&collector);
        std::cout << '.' << std::flush;
    }
    return timings;
}

} // namespace bench
