#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace test {

/// How long a second takes where the length of a wait does not matter.
constexpr std::chrono::milliseconds QUICK{10};

/// The time of the library, in a program that is linked with this: platform::deadlineAfter(),
/// PlatformUtil::sleep(), lockMutexUntil() and killProcess(), ChildPause::pause(), and the clock of
/// Zam. It is real time until an object of this class changes it, and it changes for all threads.
///
/// Each object begins with the time that it finds, and an empty record; its destructor restores the
/// time that it found. So objects may be nested, and end in reverse order. A forked process has the
/// time of its parent. All functions may be called while other threads use the time.
class TestTime {
public:
    using Milliseconds = std::chrono::milliseconds;

    TestTime();

    /// Also calls `choose` with the object: for a member or a global object that is never named again.
    explicit TestTime(const std::function<void(TestTime&)>& choose);

    ~TestTime();

    TestTime(const TestTime&) = delete;
    TestTime& operator=(const TestTime&) = delete;

    /// A second of a wait with platform::deadlineAfter(), such as those of the refresh thread,
    /// takes this long.
    void deadlinesAre(Milliseconds second);

    /// Each call of platform::deadlineAfter() is recorded: "deadline 1" for one second.
    void deadlinesAreRecorded();

    /// A second of PlatformUtil::sleep() takes this long.
    void sleepsAre(Milliseconds second);

    /// Each call of PlatformUtil::sleep() is recorded: "sleep 1000". A sleep of a second or more
    /// takes no time. A shorter one is a pause between two checks of a child, on a system that does
    /// not report the end of a child.
    void sleepsAreRecorded();

    /// Each pause between two checks of a child and each kill is recorded: "pause 50", "kill". A
    /// pause takes no time. A kill returns when the child has ended, so that the next check finds it
    /// ended also on a busy machine.
    /// @param ignoredKills  so many kills from now on do nothing
    void childrenAreRecorded(int ignoredKills = 0);

    /// A pause between two checks of a child lasts until the child ends. So the library never comes
    /// to the 100th check, and kills no client, however long the client waits for the test.
    void pausesEndWithTheChild();

    /// A second of a wait with PlatformUtil::lockMutexUntil() takes this long.
    void lockWaitsAre(Milliseconds second);

    /// The clock of Zam stands still, and shows this number of milliseconds.
    void clockIs(std::uint64_t milliseconds);

    /// Moves the clock of Zam. A clock that runs stands still from then on.
    void advance(Milliseconds step);

    /// The record, in order. An object that is made later empties it.
    std::vector<std::string> events() const;

    /// The scheduling priority of the calling thread at each event.
    std::vector<int> priorities() const;

    /// The process of each kill.
    std::vector<int> killed() const;

    /// Empties the record, and drops the actions.
    void clearRecord();

    /// Returns when the record has at least this many events.
    void awaitEvents(std::size_t count) const;

    /// Runs `action` right after the event with this number was recorded, on its thread. The first
    /// event has the number 1.
    void atEvent(std::size_t number, std::function<void()> action);

    /// Runs `action` in each recorded sleep of a second or more, on the thread that sleeps.
    void duringSleeps(std::function<void()> action);

    /// The number of waits for a lock that ended without it, since this object was made.
    int lockTimeouts() const;

    /// Returns when so many more waits for a lock have ended without it.
    static void awaitLockTimeouts(int count);

    /// The longest wait for a lock that was asked for since lockWaitsAre().
    Milliseconds longestLockWait() const;

private:
    static constexpr std::size_t SETTINGS = 8;

    std::array<int, SETTINGS> m_settingsBefore{};
    std::uint64_t m_readingBefore = 0;
    int m_timeoutsBefore;
};

} // namespace test
