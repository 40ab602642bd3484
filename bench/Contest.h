#pragma once

#include <functional>
#include <vector>

namespace bench {

/// One of several pieces of code that do the same work.
struct Contestant {
    std::function<void()> run;
    std::function<void()> prepare = nullptr; ///< before each run, not timed; may be empty
};

/// How often each contestant runs.
struct Pace {
    int rounds;
    double seconds; ///< the least time for which each is repeated in a round; 0: it runs once
};

/// Seconds a run takes: a list for each contestant, in it one value for each round.
using Timings = std::vector<std::vector<double>>;

/// Runs all contestants in turn, round after round, and prints a dot for each round.
Timings compete(const std::vector<Contestant>& contestants, Pace pace);

} // namespace bench
