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

using Measure = bench::Rows (*)(const test::Supplicant&);

template <bench::Rows (*measure)()>
bench::Rows only(const test::Supplicant& /*supplicant*/) {
    return measure();
}

struct Measurement {
    const char* name;
    Measure measure;
};

constexpr Measurement MEASUREMENTS[] = {
    {"command", only<bench::measureCommand>}, {"status", only<bench::measureStatus>},
    {"load", only<bench::measureLoad>},       {"java", only<bench::measureJava>},
    {"xml", only<bench::measureXml>},         {"xml-call", only<bench::measureXmlCall>},
    {"idle", only<bench::measureIdle>},       {"size", only<bench::measureSize>},
    {"memory", only<bench::measureMemory>},   {"curves", bench::measureCurves},
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
    return measure(supplicant);
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
