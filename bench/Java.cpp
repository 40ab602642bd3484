// A native getter, called from Java.

#include "BareCommand.h"
#include "Measurements.h"
#include "Networks.h"

#include <iostream>
#include <sstream>

namespace bench {
namespace {

constexpr int MACHINES = 3;
constexpr const char* ROUNDS = "15";

struct Calls {
    std::vector<double> getter; // seconds a call, one for each round
    std::vector<double> empty;
};

// One virtual machine compiles what it runs in its own way: several are asked.
void runMachine(Calls& calls) {
    std::istringstream lines(
        runBare(JAVA_PROGRAM,
                {"-Djava.library.path=" LIBRARY_FOLDER, "-cp", BENCH_CLASS_PATH, "bench.NativeCall",
                 EMPTY_NATIVE_LIBRARY, WLAN, SOME_SSID, SOME_BSSID, ROUNDS}));
    double getter = 0;
    double empty = 0;
    while (lines >> getter >> empty) {
        calls.getter.push_back(getter * 1e-9);
        calls.empty.push_back(empty * 1e-9);
    }
    std::cout << '.' << std::flush;
}

} // namespace

Rows measureJava() {
    Calls calls;
    for (int i = 0; i < MACHINES; ++i)
        runMachine(calls);
    return {
        timeRow("`getBssid0` from Java, the 17th of 32 networks",
                "an empty native: a lock, and a string of the same length", calls.getter,
                calls.empty,
                "What two texts on their way in, the locks, the search and one text on its way out "
                "cost "
                "over the crossing itself; a million calls take as many seconds as one takes "
                "microseconds."),
    };
}

} // namespace bench
