#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

/// Ends the program; the input is then a finding.
[[noreturn]] inline void failed(const char* file, int line, const char* condition,
                                const std::string& detail) {
    std::fprintf(stderr, "%s:%d: not so: %s%s%s\n", file, line, condition,
                 detail.empty() ? "" : ": ", detail.c_str());
    std::abort();
}

} // namespace fuzz

/// A condition that must hold for every input.
#define REQUIRE(condition)                                                                         \
    ((condition) ? static_cast<void>(0) : fuzz::failed(__FILE__, __LINE__, #condition, ""))

/// The same, with a text that is evaluated only if the condition does not hold.
#define REQUIRE_FOR(condition, detail)                                                             \
    ((condition) ? static_cast<void>(0) : fuzz::failed(__FILE__, __LINE__, #condition, detail))
