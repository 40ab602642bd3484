// Replaces platform::deadlineAfter() in the program that is linked with it.

#include "RecordedWaits.h"

#include "platform/Deadline.h"
#include "platform/PlatformUtil.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <unistd.h>

namespace test {
namespace {

std::mutex mutex;
std::condition_variable changed;
std::vector<unsigned int> waits;
std::map<std::size_t, std::function<void()>> actions;

void record(unsigned int seconds) {
    std::unique_lock<std::mutex> guard(mutex);
    waits.push_back(seconds);
    changed.notify_all();
    const auto found = actions.find(waits.size());
    const auto action = found == actions.end() ? nullptr : found->second;
    guard.unlock();
    if (action)
        action();
}

} // namespace

void RecordedWaits::reset() {
    const std::lock_guard<std::mutex> guard(mutex);
    waits.clear();
    actions.clear();
}

std::vector<unsigned int> RecordedWaits::seconds() {
    const std::lock_guard<std::mutex> guard(mutex);
    return waits;
}

void RecordedWaits::await(std::size_t count) {
    std::unique_lock<std::mutex> guard(mutex);
    changed.wait(guard, [count] { return waits.size() >= count; });
}

void RecordedWaits::at(std::size_t number, std::function<void()> action) {
    const std::lock_guard<std::mutex> guard(mutex);
    actions[number] = std::move(action);
}

} // namespace test

std::chrono::steady_clock::time_point platform::deadlineAfter(unsigned int seconds) noexcept {
    if (PlatformUtil::threadId() != getpid())
        test::record(seconds);
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(10) * seconds;
}
