#include "RecordedReloads.h"

#include "watchdog/WifiHostSettingsWatchdog.h"

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

bool recordReload() noexcept {
    std::unique_lock<std::mutex> guard(mutex);
    ++count;
    changed.notify_all();
    const auto duringReload = action;
    const bool done = refusals == 0;
    refusals -= done ? 0 : 1;
    guard.unlock();
    if (duringReload)
        duringReload();
    return done;
}

[[maybe_unused]] const bool RECORDS = (platwifi::setReloadHook(recordReload), true);

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
