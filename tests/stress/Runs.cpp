// usage: stress_runs NAME [OPTION...]

#include "Runs.h"

#include "support/PrivateWorld.h"
#include "support/TestTime.h"

#include <cstdio>
#include <cstring>

namespace {

struct Run {
    const char* name;
    void (*run)(char* arguments[]);
};

constexpr Run RUNS[] = {
    {"cycles", stress::cycles},
    {"kills", stress::kills},
    {"races", stress::races},
    {"soak", stress::soak},
};

} // namespace

int main(int count, char* arguments[]) {
    test::enterPrivateWorld(arguments);
    test::TestTime time;
    time.deadlinesAre(std::chrono::milliseconds(1));
    time.sleepsAre(test::QUICK);
    for (const Run& run : RUNS) {
        if (count > 1 && std::strcmp(arguments[1], run.name) == 0) {
            run.run(arguments + 1);
            return 0;
        }
    }
    std::fputs("usage: stress_runs cycles|kills|races|soak [OPTION...]\n", stderr);
    return 2;
}
