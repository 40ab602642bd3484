// A native getter, called from Java.

#include "BareCommand.h"
#include "Measurements.h"
#include "Networks.h"

#include <iostream>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

constexpr int MACHINES = 3;
constexpr int ROUNDS = 15; // in each virtual machine

struct Calls {
    std::vector<double> getter; // seconds a call, one for each round
    std::vector<double> empty;
};

std::string runMachine() {
    return runBare(JAVA_PROGRAM, {"-Djava.library.path=" LIBRARY_FOLDER, "-cp", BENCH_CLASS_PATH,
                                  "bench.NativeCall", EMPTY_NATIVE_LIBRARY, WLAN, SOME_SSID,
                                  SOME_BSSID, std::to_string(ROUNDS)});
}

void take(Calls& calls, const std::string& output) {
    std::istringstream lines(output);
    for (int round = 0; round < ROUNDS; ++round) {
        double getter = 0;
        double empty = 0;
        if (!(lines >> getter >> empty))
            throw std::runtime_error("unexpected output of the virtual machine: " + output);
        calls.getter.push_back(getter * 1e-9);
        calls.empty.push_back(empty * 1e-9);
    }
}

} // namespace

// Each run of a virtual machine compiles the code differently, so several are measured.
Rows measureJava() {
    Calls calls;
    for (int i = 0; i < MACHINES; ++i) {
        take(calls, runMachine());
        std::cout << '.' << std::flush;
    }
    return {
        timeRow("`getBssid0` from Java, the 16th of 32 networks",
                "an empty native: a lock, and a string of the same length", calls.getter,
                calls.empty,
                "The cost of converting two texts to C++ and one to Java, of the locks and of the "
                "search, over that of a native call itself."),
    };
}

} // namespace bench
