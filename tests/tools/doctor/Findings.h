#pragma once

#include "checks/CheckFunctions.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>

namespace cli {

/// How GoogleTest prints a finding.
inline void PrintTo(const Finding& finding, std::ostream* out) {
    *out << finding.subject << ": \"" << finding.found << "\", to do: \"" << finding.toDo << '"';
}

} // namespace cli

namespace test {

using FindingMatcher = testing::Matcher<const cli::Finding&>;
using TextMatcher = testing::Matcher<const std::string&>;

inline FindingMatcher isFinding(cli::Health health, const TextMatcher& found,
                                const TextMatcher& toDo) {
    return testing::AllOf(testing::Field("health", &cli::Finding::health, health),
                          testing::Field("found", &cli::Finding::found, found),
                          testing::Field("toDo", &cli::Finding::toDo, toDo));
}

// Findings whose texts match.

inline FindingMatcher isGood(const TextMatcher& found = testing::_) {
    return isFinding(cli::Health::GOOD, found, testing::_);
}

inline FindingMatcher isNote(const TextMatcher& found = testing::_,
                             const TextMatcher& toDo = testing::_) {
    return isFinding(cli::Health::NOTE, found, toDo);
}

inline FindingMatcher isBad(const TextMatcher& found = testing::_,
                            const TextMatcher& toDo = testing::_) {
    return isFinding(cli::Health::BAD, found, toDo);
}

} // namespace test
