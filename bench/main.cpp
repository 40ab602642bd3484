// Makes one measurement, prints a dot for each round, and writes the result as rows of a table.

#include "Measurements.h"
#include "Networks.h"
#include "supplicant/Supplicant.h"

#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>

namespace {

using Measure = bench::Rows (*)();

struct Measurement {
    const char* name;
    Measure measure;
};

constexpr Measurement MEASUREMENTS[] = {
    {"command", bench::measureCommand},  {"load", bench::measureLoad},
    {"java", bench::measureJava},        {"xml", bench::measureXml},
    {"xml-call", bench::measureXmlCall}, {"idle", bench::measureIdle},
    {"size", bench::measureSize},        {"memory", bench::measureMemory},
};

// Null if there is no such measurement.
Measure measurementNamed(const char* name) {
    for (const Measurement& measurement : MEASUREMENTS) {
        if (std::strcmp(name, measurement.name) == 0)
            return measurement.measure;
    }
    return nullptr;
}

bench::Rows besideASupplicant(Measure measure) {
    test::Supplicant supplicant;
    supplicant.start(bench::networks());
    supplicant.awaitStatus("wpa_state=COMPLETED");
    return measure();
}

} // namespace

int main(int count, char** arguments) try {
    const Measure measure = count == 3 ? measurementNamed(arguments[1]) : nullptr;
    if (!measure) {
        std::cerr << "usage: platwifi_bench MEASUREMENT FILE (scripts/bench --help lists them)\n";
        return 2;
    }
    setenv("PLATFORM_KEY_FILE", "/tmp/bench-keys/crypt.key", 1); // never the key of this machine
    std::ofstream file(arguments[2]);
    write(file, besideASupplicant(measure));
    std::cout << '\n';
    return file.flush() ? 0 : 1;
} catch (const std::exception& problem) {
    std::cerr << "\nplatwifi_bench: " << problem.what() << '\n';
    return 1;
}
