// The memory of a process before and after a load, and after a thousand.

#include "Measurements.h"
#include "Subject.h"

#include <iostream>

namespace bench {
namespace {

constexpr int ROUNDS = 5;

struct Account {
    const char* name; // in the system's list
    const char* what;
    const char* meaning;
};

constexpr Account ACCOUNTS[] = {
    {"Private_Dirty", "Private memory of a process with 32 networks loaded",
     "The memory that no other process shares: the networks, the heap and the stack of one "
     "thread."},
    {"Rss", "Memory in use by a process with 32 networks loaded",
     "The same with the pages of code and libraries, which processes share."},
};

struct BeforeAndAfter {
    std::vector<double> before;
    std::vector<double> after;
};

using Figures = std::vector<BeforeAndAfter>; // one for each name

void lookAt(Figures& figures) {
    Subject subject("settings");
    for (std::size_t i = 0; i < std::size(ACCOUNTS); ++i)
        figures[i].before.push_back(subject.memory(ACCOUNTS[i].name));
    subject.begin();
    for (std::size_t i = 0; i < std::size(ACCOUNTS); ++i)
        figures[i].after.push_back(subject.memory(ACCOUNTS[i].name));
    std::cout << '.' << std::flush;
}

// The figures of one process: each load is the same work, so more rounds would show the same.
Row afterMoreLoads() {
    Subject subject("loads", RELOAD_SUBJECT_PROGRAM);
    subject.begin();
    const std::vector<double> once{subject.memory(ACCOUNTS[0].name)};
    subject.begin();
    const std::vector<double> often{subject.memory(ACCOUNTS[0].name)};
    return {"Private memory of a process after 1,000 more loads",
            "the same process after the first hundred",
            ratios(often, once),
            medians(often, once, inKibibytes),
            "What a load leaves behind. The answers of the client to the first load are repeated.",
            "more-loads",
            (often[0] - once[0]) / 1024};
}

} // namespace

Rows measureMemory() {
    Figures figures(std::size(ACCOUNTS));
    for (int round = 0; round < ROUNDS; ++round)
        lookAt(figures);
    Rows rows;
    for (std::size_t i = 0; i < std::size(ACCOUNTS); ++i) {
        const auto& [before, after] = figures[i];
        std::vector<double> added;
        for (std::size_t round = 0; round < ROUNDS; ++round)
            added.push_back(after[round] - before[round]);
        rows.push_back({ACCOUNTS[i].what, "the same process before the load", ratios(after, before),
                        medians(after, before, inKibibytes), ACCOUNTS[i].meaning, ACCOUNTS[i].name,
                        median(added) / 1024});
    }
    rows.push_back(afterMoreLoads());
    return rows;
}

} // namespace bench
