#include "RecordedReloads.h"

#include "watchdog/ReloadHook.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace test {
namespace {

std::mutex mutex;
std::condition_variable changed;
std::function<void()> action;
int refusals = 0;
int count = 0;

} // namespace

void RecordedReloads::reset() {
    const std::lock_guard<std::mutex> guard(mutex);
    action = nullptr;
    refusals = count = 0;
}

void RecordedReloads::during(std::function<void()> newAction) {
    const std::lock_guard<std::mutex> guard(mutex);
    action = std::move(newAction);
}

void RecordedReloads::refuse(int times) {
    const std::lock_guard<std::mutex> guard(mutex);
    refusals = times;
}

int RecordedReloads::calls() {
    const std::lock_guard<std::mutex> guard(mutex);
    return count;
}

void RecordedReloads::awaitCalls(int wanted) {
    std::unique_lock<std::mutex> guard(mutex);
    changed.wait(guard, [wanted] { return count >= wanted; });
}

} // namespace test

bool platwifi::refreshSettings() noexcept {
    std::unique_lock<std::mutex> guard(test::mutex);
    ++test::count;
    test::changed.notify_all();
    const auto action = test::action;
    const bool done = test::refusals == 0;
    test::refusals -= done ? 0 : 1;
    guard.unlock();
    if (action)
        action();
    return done;
}
