// Takes the place of the platform's mutex operations in the program it is linked into.

#include "RecordedLocks.h"

#include "support/TestTime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <pthread.h>
#include <thread>

namespace {

// Of one thread only, and only while it wants them.
thread_local test::LockEvents* recorder = nullptr;

// Whether the mutex is free at the beginning and the end and nowhere in between.
bool isHeldThroughout(const test::LockEvents& events, const PlatformMutex* mutex) {
    int depth = 0;
    int timesFree = 0;
    for (const test::LockEvent& event : events) {
        if (event.mutex != mutex)
            continue;
        depth += event.isLock ? 1 : -1;
        timesFree += depth == 0 ? 1 : 0;
    }
    return depth == 0 && timesFree == 1;
}

void note(bool isLock, PlatformMutex* mutex) {
    if (recorder)
        recorder->push_back({isLock, mutex});
}

} // namespace

int PlatformUtil::lockMutex(PlatformMutex* mutex) noexcept {
    const int result = pthread_mutex_lock(mutex);
    note(true, mutex);
    return result;
}

int PlatformUtil::unlockMutex(PlatformMutex* mutex) noexcept {
    note(false, mutex);
    return pthread_mutex_unlock(mutex);
}

namespace test {

LockEvents eventsOf(const std::function<void()>& work) {
    LockEvents events;
    recorder = &events;
    work();
    recorder = nullptr;
    return events;
}

void awaitLockTimeout() {
    TestTime::awaitLockTimeouts(1);
}

SettingsMutexes::SettingsMutexes(WifiHostSettings& settings) {
    const LockEvents events = eventsOf([&] { settings.lockSettings(); });
    settings.unlockSettings();
    EXPECT_EQ(events.size(), all.size());
    for (std::size_t i = 0; i < all.size() && i < events.size(); ++i)
        all[i] = events[i].mutex;
}

LockEvents SettingsMutexes::among(const LockEvents& events) const {
    LockEvents found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found),
                 [this](const auto& event) {
                     return std::find(all.begin(), all.end(), event.mutex) != all.end();
                 });
    return found;
}

bool SettingsMutexes::areHeldThroughout(const LockEvents& events) const {
    return events.size() >= 4 && LockEvents(events.begin(), events.begin() + 2) == taking() &&
           LockEvents(events.end() - 2, events.end()) == givingBack() &&
           std::all_of(all.begin(), all.end(), [&events](const PlatformMutex* mutex) {
               return isHeldThroughout(events, mutex);
           });
}

bool SettingsMutexes::pairIsHeldThroughout(const LockEvents& events) const {
    return areHeldThroughout(among(events));
}

bool SettingsMutexes::pairIsHeld() const {
    return !isFree(all[0]) && !isFree(all[1]);
}

bool isFree(PlatformMutex* mutex) {
    bool taken = false;
    std::thread([&] {
        taken = PlatformUtil::tryLockMutex(mutex) == 0;
        if (taken)
            PlatformUtil::unlockMutex(mutex);
    }).join();
    return taken;
}

} // namespace test
