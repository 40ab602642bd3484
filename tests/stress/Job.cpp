#include "Job.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <unistd.h>

#ifdef STRESS_SANITIZED
// The sanitizer looks for this name.
#pragma GCC diagnostic push
#if defined(__clang__)
#pragma GCC diagnostic ignored "-Wreserved-identifier"
#endif
extern "C" const char* __tsan_default_options();
const char* __tsan_default_options() {
    return "halt_on_error=1:second_deadlock_stack=1";
}
#pragma GCC diagnostic pop
#endif

namespace stress {
namespace {

Job& job() {
    static Job job;
    return job;
}

void writeError(const std::string& text) {
    static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
}

[[noreturn]] void showUsage(const char* name) {
    writeError(std::string("usage: ") + name +
               " [--count N] [--seconds N] [--seed N] [--real N]\n");
    std::exit(2);
}

std::uint32_t numberOf(const char* text, const char* name) {
    char* end = nullptr;
    const unsigned long number = text ? std::strtoul(text, &end, 10) : 0;
    if (!text || *text == '\0' || *end != '\0')
        showUsage(name);
    return static_cast<std::uint32_t>(number);
}

unsigned int share(std::uint32_t part, std::uint32_t whole) {
    if (whole == 0)
        return 0;
    return part >= whole ? 100 : static_cast<unsigned int>(100.0 * part / whole);
}

} // namespace

Job Job::from(const char* name, std::uint32_t defaultCount, char* arguments[]) {
    Job& read = job();
    read.name = name;
    read.seed = std::random_device()();
    const std::map<std::string, std::uint32_t*> options{{"--count", &read.count},
                                                        {"--seconds", &read.seconds},
                                                        {"--seed", &read.seed},
                                                        {"--real", &read.real}};
    for (char** argument = arguments + 1; *argument; argument += 2) {
        const auto option = options.find(*argument);
        if (option == options.end())
            showUsage(name);
        *option->second = numberOf(argument[1], name);
    }
    if (read.count == 0 && read.seconds == 0)
        read.count = defaultCount;
    writeError(read.name + ": seed " + std::to_string(read.seed) + "\n");
    return read;
}

Job Job::named(const char* name, std::uint32_t seed) {
    job().name = name;
    job().seed = seed;
    return job();
}

unsigned int Job::percent(std::uint32_t done, std::uint32_t secondsGone) const {
    return std::max(share(done, count), share(secondsGone, seconds));
}

void fail(const std::string& message) {
    writeError("\n" + job().name + ": FAILED: " + message + " (seed " + std::to_string(job().seed) +
               ")\n");
    _exit(1);
}

Random::Random(std::uint32_t seed, std::uint32_t number) {
    std::seed_seq sequence{seed, number};
    m_engine.seed(sequence);
}

} // namespace stress
