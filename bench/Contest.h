#pragma once

#include <functional>
#include <vector>

namespace bench {

/// One of several that do the same work.
struct Contestant {
    std::function<void()> run;
    std::function<void()> prepare = nullptr; ///< before each run, not timed; may be empty
};

/// How often each of them runs.
struct Pace {
    int rounds;
    double seconds; ///< for which one is repeated in a round, at least; 0: it runs once
};

/// Seconds a run takes: a list for each contestant, in it one value for each round.
using Timings = std::vector<std::vector<double>>;

/// Runs all contestants in turn, round after round, and prints a dot for each round.
Timings compete(const std::vector<Contestant>& contestants, Pace pace);

} // namespace bench
