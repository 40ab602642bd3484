#include "support/TestTime.h"

#include "platform/ChildPause.h"
#include "platform/Deadline.h"
#include "platform/PlatformUtil.h"
#include "zam/Zam.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <iterator>
#include <map>
#include <mutex>
#include <sys/wait.h>
#include <thread>
#include <utility>

namespace {

using Milliseconds = test::TestTime::Milliseconds;
using Clock = std::chrono::steady_clock;

constexpr int REAL = 1000; // milliseconds of a second

enum Setting : std::size_t {
    DEADLINE_SECOND, // in milliseconds
    SLEEP_SECOND,
    LOCK_SECOND,
    RECORDS_DEADLINES, // 0 or 1
    RECORDS_SLEEPS,
    RECORDS_CHILDREN,
    WAITS_FOR_CHILDREN,
    CLOCK_STANDS,
};

// Atomic, and without a mutex: a mutex would order the threads of the library, and hide their races from
// the thread sanitizer.
std::array<std::atomic<int>, 8> settings{REAL, REAL, REAL, 0, 0, 0, 0, 0};

std::mutex clockMutex; // not every processor has 64-bit atomics
std::uint64_t reading = 0;

std::atomic<int> lockTimeoutCount{0};
std::atomic<int> longestLockWaitMs{0};
std::atomic<int> killsToIgnore{0};

struct Record {
    std::mutex mutex;
    std::condition_variable grew;
    std::vector<std::string> events;
    std::vector<int> priorities;
    std::vector<int> killed;
    std::map<std::size_t, std::function<void()>> actions;
    std::function<void()> sleepAction;
};

// Never destroyed: the refresh thread may use it while the process ends.
Record& record() {
    static Record& instance = *new Record;
    return instance;
}

void run(const std::function<void()>& action) {
    if (action)
        action();
}

int ownPriority() {
    sched_param parameters{};
    int policy = 0;
    pthread_getschedparam(pthread_self(), &policy, &parameters);
    return parameters.sched_priority;
}

void note(const std::string& event, int killedProcess = 0) {
    std::unique_lock<std::mutex> guard(record().mutex);
    record().events.push_back(event);
    record().priorities.push_back(ownPriority());
    if (killedProcess > 0)
        record().killed.push_back(killedProcess);
    record().grew.notify_all();
    const auto found = record().actions.find(record().events.size());
    const auto action = found == record().actions.end() ? nullptr : found->second;
    guard.unlock();
    run(action);
}

void runSleepAction() {
    std::unique_lock<std::mutex> guard(record().mutex);
    const auto action = record().sleepAction;
    guard.unlock();
    run(action);
}

// The library's own function behind `own`, its replacement in this file: the next one with the same name. A
// pointer to a function, or to a member function that is not virtual, begins with the address.
template <typename Function>
Function behind(Function own) {
    void* address = nullptr;
    std::memcpy(&address, &own, sizeof(address));
    Dl_info place{};
    dladdr(address, &place);
    address = place.dli_sname ? dlsym(RTLD_NEXT, place.dli_sname) : nullptr;
    if (!address) {
        std::fputs("a function of the platform library was not found\n", stderr);
        std::abort();
    }
    std::memcpy(&own, &address, sizeof(address));
    return own;
}

struct Library {
    decltype(&platform::deadlineAfter) deadlineAfter = behind(&platform::deadlineAfter);
    decltype(&PlatformUtil::sleep) sleep = behind(&PlatformUtil::sleep);
    decltype(&PlatformUtil::lockMutexUntil) lockUntil = behind(&PlatformUtil::lockMutexUntil);
    decltype(&PlatformUtil::killProcess) kill = behind(&PlatformUtil::killProcess);
    decltype(&ChildPause::pause) pause = behind(&ChildPause::pause);
    decltype(&Zam::milliseconds) milliseconds = behind(&Zam::milliseconds);
};

const Library& library() {
    static const Library found;
    return found;
}

std::uint64_t readClock() {
    if (settings[CLOCK_STANDS] == 0)
        return (Zam::getInstance()->*library().milliseconds)();
    const std::lock_guard<std::mutex> guard(clockMutex);
    return reading;
}

void setClock(std::uint64_t milliseconds) {
    const std::lock_guard<std::mutex> guard(clockMutex);
    reading = milliseconds;
    settings[CLOCK_STANDS] = 1;
}

// What a wait for a lock takes that is to end at this time.
Clock::duration lockWaitUntil(Clock::time_point deadline) {
    const auto asked = std::max(deadline - Clock::now(), Clock::duration::zero());
    const auto asMs = std::chrono::ceil<Milliseconds>(asked);
    longestLockWaitMs = std::max(longestLockWaitMs.load(), static_cast<int>(asMs.count()));
    return asked * settings[LOCK_SECOND].load() / REAL;
}

// False for a process that is no child, or no longer one.
bool awaitEnd(int processId) {
    siginfo_t info{};
    return processId > 0 &&
           waitid(P_PID, static_cast<id_t>(processId), &info, WEXITED | WNOWAIT) == 0;
}

} // namespace

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    if (settings[RECORDS_DEADLINES] != 0)
        note("deadline " + std::to_string(seconds));
    const int second = settings[DEADLINE_SECOND];
    return second == REAL ? library().deadlineAfter(seconds)
                          : Clock::now() + Milliseconds(second) * seconds;
}

void PlatformUtil::sleep(int milliseconds) noexcept {
    if (settings[RECORDS_SLEEPS] != 0) {
        note("sleep " + std::to_string(milliseconds));
        if (milliseconds >= REAL)
            return runSleepAction();
    }
    const int second = settings[SLEEP_SECOND];
    if (second == REAL)
        library().sleep(milliseconds);
    else
        std::this_thread::sleep_for(std::chrono::microseconds(second) * milliseconds);
}

int PlatformUtil::lockMutexUntil(PlatformMutex* mutex, Clock::time_point deadline) noexcept {
    if (settings[LOCK_SECOND] != REAL)
        deadline = Clock::now() + lockWaitUntil(deadline);
    const int result = library().lockUntil(mutex, deadline);
    if (result == ETIMEDOUT)
        ++lockTimeoutCount;
    return result;
}

int PlatformUtil::killProcess(int processId) noexcept {
    if (settings[RECORDS_CHILDREN] == 0)
        return library().kill(processId);
    note("kill", processId);
    if (killsToIgnore-- > 0)
        return 0;
    const int result = library().kill(processId);
    awaitEnd(processId);
    return result;
}

void ChildPause::pause(int milliseconds) noexcept {
    if (settings[RECORDS_CHILDREN] != 0)
        note("pause " + std::to_string(milliseconds));
    else if (settings[WAITS_FOR_CHILDREN] == 0)
        (this->*library().pause)(milliseconds);
    else if (!awaitEnd(m_child))
        PlatformUtil::sleep(milliseconds);
}

std::uint64_t Zam::milliseconds() const noexcept {
    return readClock();
}

namespace test {

// Looks up the library's functions at once: a test of failed allocations must not do that first.
TestTime::TestTime() : m_timeoutsBefore(lockTimeoutCount) {
    static_assert(std::size(settings) == SETTINGS);
    library();
    clearRecord();
    std::copy(std::begin(settings), std::end(settings), m_settingsBefore.begin());
    const std::lock_guard<std::mutex> guard(clockMutex);
    m_readingBefore = reading;
}

TestTime::TestTime(const std::function<void(TestTime&)>& choose) : TestTime() {
    choose(*this);
}

TestTime::~TestTime() {
    const std::lock_guard<std::mutex> guard(clockMutex);
    reading = m_readingBefore;
    std::copy(m_settingsBefore.begin(), m_settingsBefore.end(), std::begin(settings));
}

void TestTime::deadlinesAre(Milliseconds second) {
    settings[DEADLINE_SECOND] = static_cast<int>(second.count());
}

void TestTime::deadlinesAreRecorded() {
    settings[RECORDS_DEADLINES] = 1;
}

void TestTime::sleepsAre(Milliseconds second) {
    settings[SLEEP_SECOND] = static_cast<int>(second.count());
}

void TestTime::sleepsAreRecorded() {
    settings[RECORDS_SLEEPS] = 1;
}

void TestTime::childrenAreRecorded(int ignoredKills) {
    killsToIgnore = ignoredKills;
    settings[RECORDS_CHILDREN] = 1;
}

void TestTime::pausesEndWithTheChild() {
    settings[WAITS_FOR_CHILDREN] = 1;
}

void TestTime::lockWaitsAre(Milliseconds second) {
    longestLockWaitMs = 0;
    settings[LOCK_SECOND] = static_cast<int>(second.count());
}

void TestTime::clockIs(std::uint64_t milliseconds) {
    setClock(milliseconds);
}

void TestTime::advance(Milliseconds step) {
    setClock(readClock() + static_cast<std::uint64_t>(step.count()));
}

std::vector<std::string> TestTime::events() const {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().events;
}

std::vector<int> TestTime::priorities() const {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().priorities;
}

std::vector<int> TestTime::killed() const {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().killed;
}

void TestTime::clearRecord() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.clear();
    record().priorities.clear();
    record().killed.clear();
    record().actions.clear();
    record().sleepAction = nullptr;
}

void TestTime::awaitEvents(std::size_t count) const {
    std::unique_lock<std::mutex> guard(record().mutex);
    record().grew.wait(guard, [count] { return record().events.size() >= count; });
}

void TestTime::atEvent(std::size_t number, std::function<void()> action) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().actions[number] = std::move(action);
}

void TestTime::duringSleeps(std::function<void()> action) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().sleepAction = std::move(action);
}

int TestTime::lockTimeouts() const {
    return lockTimeoutCount - m_timeoutsBefore;
}

void TestTime::awaitLockTimeouts(int count) {
    const int before = lockTimeoutCount;
    while (lockTimeoutCount - before < count)
        std::this_thread::yield();
}

TestTime::Milliseconds TestTime::longestLockWait() const {
    return Milliseconds(longestLockWaitMs);
}

} // namespace test
