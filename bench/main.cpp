// Measures, and writes a table of what came out.

#include "Measurements.h"
#include "Networks.h"
#include "supplicant/Supplicant.h"

#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>

namespace {

struct Measurement {
    const char* name;
    const char* what;
    bench::Rows (*measure)();
};

constexpr Measurement MEASUREMENTS[] = {
    {"command", "one client command, the library against bare children", bench::measureCommand},
    {"load", "loading 32 networks against bare children and a script", bench::measureLoad},
    {"java", "a native getter from Java against an empty native", bench::measureJava},
    {"xml", "writing a document of 32 networks, five writers", bench::measureXml},
    {"xml-call", "what the XML document of the library is made of", bench::measureXmlCall},
    {"idle", "a process that has the settings and does nothing", bench::measureIdle},
    {"size", "the libraries as they are shipped", bench::measureSize},
    {"memory", "the memory of a process before and after a load", bench::measureMemory},
};

void list(std::ostream& out) {
    for (const Measurement& measurement : MEASUREMENTS)
        out << "  " << measurement.name << std::string(12 - std::strlen(measurement.name), ' ')
            << measurement.what << '\n';
}

bool isNamed(const Measurement& measurement, char** names) {
    for (; *names; ++names) {
        if (std::strcmp(*names, measurement.name) == 0)
            return true;
    }
    return false;
}

bench::Rows measure(const Measurement& measurement) {
    std::cout << "==> bench: " << measurement.what << ' ' << std::flush;
    bench::Rows rows = measurement.measure();
    std::cout << '\n';
    return rows;
}

// No names are all of them.
bench::Rows measureAll(char** names) {
    test::Supplicant supplicant;
    supplicant.start(bench::networks());
    supplicant.awaitStatus("wpa_state=COMPLETED");
    bench::Rows all;
    for (const Measurement& measurement : MEASUREMENTS) {
        if (*names && !isNamed(measurement, names))
            continue;
        for (bench::Row& row : measure(measurement))
            all.push_back(std::move(row));
    }
    return all;
}

} // namespace

int main(int count, char** arguments) try {
    if (count == 2 && std::strcmp(arguments[1], "--list") == 0) {
        list(std::cout);
        return 0;
    }
    if (count < 2) {
        std::cerr << "usage: platwifi_bench --list | TABLE_FILE [MEASUREMENT...]\n";
        return 2;
    }
    setenv("PLATFORM_KEY_FILE", "/tmp/bench-keys/crypt.key", 1); // never the key of this machine
    std::ofstream table(arguments[1]);
    write(table, measureAll(arguments + 2));
    return table.flush() ? 0 : 1;
} catch (const std::exception& problem) {
    std::cerr << "\nplatwifi_bench: " << problem.what() << '\n';
    return 1;
}
