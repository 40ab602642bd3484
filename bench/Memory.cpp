// The memory of a process before and after a load.

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

} // namespace

Rows measureMemory() {
    Figures figures(std::size(ACCOUNTS));
    for (int round = 0; round < ROUNDS; ++round)
        lookAt(figures);
    Rows rows;
    for (std::size_t i = 0; i < std::size(ACCOUNTS); ++i) {
        const auto& [before, after] = figures[i];
        rows.push_back({ACCOUNTS[i].what, "the same process before the load", ratios(after, before),
                        medians(after, before, inKibibytes), ACCOUNTS[i].meaning, ACCOUNTS[i].name,
                        (median(after) - median(before)) / 1024});
    }
    return rows;
}

} // namespace bench
