// A native getter that several Java threads call at the same time.

#include "BareCommand.h"
#include "Networks.h"
#include "curves/Curves.h"

#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

constexpr const char* LIBRARY_PATH = "-Djava.library.path=" LIBRARY_FOLDER;
constexpr int MACHINES = 3; // each compiles the code differently
constexpr int ROUNDS = 3;   // in each virtual machine

// Calls a second for each number of threads, one value for each round.
using Rates = std::map<double, std::vector<double>>;

void take(Rates& rates, const std::string& output) {
    std::istringstream lines(output);
    double threads = 0;
    double rate = 0;
    while (lines >> threads >> rate)
        rates[threads].push_back(rate);
    if (rates.empty() || !lines.eof())
        throw std::runtime_error("unexpected output of the virtual machine: " + output);
}

Rates measure() {
    Rates rates;
    for (int i = 0; i < MACHINES; ++i) {
        take(rates,
             runBare(JAVA_PROGRAM, {LIBRARY_PATH, "-cp", BENCH_CLASS_PATH, "bench.ThreadedCalls",
                                    WLAN, SOME_SSID, SOME_BSSID, std::to_string(ROUNDS)}));
        std::cout << '.' << std::flush;
    }
    return rates;
}

Series callsOf(const Rates& rates) {
    Series series{"calls of all threads", {}};
    for (const auto& [threads, values] : rates)
        series.points.push_back({threads, values});
    return series;
}

Series timesOf(const Rates& rates) {
    Series series{"a call, as one thread sees it", {}};
    for (const auto& [threads, values] : rates) {
        series.points.push_back({threads, {}});
        for (const double rate : values)
            series.points.back().values.push_back(threads / rate);
    }
    return series;
}

// The lock lets one call in at a time: at best, all threads share the calls of one.
Series idealCalls(const Series& calls) {
    Series ideal{"the calls of one thread", {}};
    for (const Point& point : calls.points)
        ideal.points.push_back({point.x, {first(calls)}});
    return ideal;
}

Series idealTimes(const Series& times) {
    Series ideal{"the time of one thread, times the threads", {}};
    for (const Point& point : times.points)
        ideal.points.push_back({point.x, {first(times) * point.x}});
    return ideal;
}

std::string millions(double calls) {
    return shortly(calls / 1e6) + " million";
}

} // namespace

ThreadCurves measureThreadCurves() {
    const Rates rates = measure();
    const Series calls = callsOf(rates);
    const Series times = timesOf(rates);
    return {
        {{calls},
         idealCalls(calls),
         "One thread makes " + millions(first(calls)) + " calls a second, two threads make " +
             millions(median(calls.points[1].values)) + " and 32 threads " + millions(last(calls)) +
             ", " + shortly(last(calls) / first(calls)) + " times as many as one."},
        {{times},
         idealTimes(times),
         "A call takes " + inSeconds(first(times)) + " with one thread, " +
             inSeconds(median(times.points[1].values)) + " with two and " + inSeconds(last(times)) +
             " with 32, " + shortly(last(times) / first(times) / times.points.back().x) +
             " of the ideal at 32."}};
}

} // namespace bench
