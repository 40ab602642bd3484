// Native getters, called from Java.

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
    std::vector<double> bare;
};

std::string runMachine(const char* kind) {
    return runBare(JAVA_PROGRAM, {"-Djava.library.path=" LIBRARY_FOLDER, "-cp", BENCH_CLASS_PATH,
                                  "bench.NativeCall", BARE_NATIVE_LIBRARY, kind, WLAN, SOME_SSID,
                                  std::to_string(ROUNDS)});
}

void take(Calls& calls, const std::string& output) {
    std::istringstream lines(output);
    for (int round = 0; round < ROUNDS; ++round) {
        double getter = 0;
        double bare = 0;
        if (!(lines >> getter >> bare))
            throw std::runtime_error("unexpected output of the virtual machine: " + output);
        calls.getter.push_back(getter * 1e-9);
        calls.bare.push_back(bare * 1e-9);
    }
}

// Each run of a virtual machine compiles the code differently, so several are measured.
Calls measureCalls(const char* kind) {
    Calls calls;
    for (int i = 0; i < MACHINES; ++i) {
        take(calls, runMachine(kind));
        std::cout << '.' << std::flush;
    }
    return calls;
}

} // namespace

Rows measureJava() {
    const Calls text = measureCalls("text");
    const Calls number = measureCalls("number");
    return {
        timeRow(
            "`getBssid0` from Java, the 16th of 32 networks",
            "a native that takes two texts, locks a recursive mutex and returns a text",
            text.getter, text.bare,
            "The cost of a second lock and of the search, over that of a native which exchanges "
            "the same texts with Java.",
            "getter-text"),
        timeRow("`getPriority0` from Java, of the same network",
                "a native that takes two texts, locks a recursive mutex and returns a number",
                number.getter, number.bare, "The same, without a text for Java.", "getter-number"),
    };
}

} // namespace bench
