#pragma once

#include <functional>
#include <string>
#include <vector>

namespace test {

/// What the library asked of the platform's clock and of its kill, in order: "pause 50" between two
/// looks at a child, "sleep 1000", "kill". A test program that links RecordedSleep.cpp takes the
/// place of PlatformUtil::sleep(): a second and more passes at once. One that links
/// RecordedChild.cpp as well takes the place of the pause and of the kill too: no time passes.
class RecordedPlatform {
public:
    /// Starts a new record. The first `swallowedKills` kills are recorded but do nothing, as with a
    /// child that is not gone yet when it is looked at next.
    static void begin(int swallowedKills = 0);

    /// What is done during each sleep of a second and more, on the sleeper's thread, until the next
    /// begin().
    static void duringSleeps(const std::function<void()>& action);

    static std::vector<std::string> events();

    /// The scheduling priority of the caller at each event.
    static std::vector<int> priorities();

    /// The process of each kill.
    static std::vector<int> killed();

    // For the replacements. A kill is to be carried out where the result is true.
    static void note(const std::string& event);
    static void passSleep();
    static bool noteKill(int processId);
};

} // namespace test
