#pragma once

#include <functional>
#include <string>
#include <vector>

namespace test {

/// Records the sleeps, pauses and kills of the library in order: "sleep 1000", "pause 50" between
/// two looks at a child, "kill". A test program that links RecordedSleep.cpp replaces
/// PlatformUtil::sleep(): a sleep of a second and more takes no time. One that also links
/// RecordedChild.cpp replaces ChildPause::pause(), which takes no time either, and
/// PlatformUtil::killProcess().
class RecordedPlatform {
public:
    /// Starts a new record. The first `ignoredKills` kills are recorded but do nothing, as if the
    /// child had not ended yet at the next look.
    static void begin(int ignoredKills = 0);

    /// Runs this during each sleep of a second and more, on the thread that sleeps, until the next
    /// begin().
    static void duringSleeps(const std::function<void()>& action);

    static std::vector<std::string> events();

    /// The scheduling priority of the caller at each event.
    static std::vector<int> priorities();

    /// The process of each kill.
    static std::vector<int> killed();

    // For the replacements. noteKill() returns whether the kill is to be carried out.
    static void note(const std::string& event);
    static void passSleep();
    static bool noteKill(int processId);
};

} // namespace test
