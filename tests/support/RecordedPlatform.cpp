#include "support/RecordedPlatform.h"

#include <mutex>
#include <pthread.h>
#include <sched.h>

namespace test {
namespace {

struct Record {
    std::mutex mutex;
    std::vector<std::string> events;
    std::vector<int> priorities;
    std::vector<int> killed;
    int ignoredKills = 0;
    std::function<void()> duringSleeps;
};

Record& record() {
    static Record instance;
    return instance;
}

int ownPriority() {
    sched_param parameters{};
    int policy = 0;
    pthread_getschedparam(pthread_self(), &policy, &parameters);
    return parameters.sched_priority;
}

// The caller holds the mutex of the record.
void add(const std::string& event) {
    record().events.push_back(event);
    record().priorities.push_back(ownPriority());
}

} // namespace

void RecordedPlatform::begin(int ignoredKills) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.clear();
    record().priorities.clear();
    record().killed.clear();
    record().ignoredKills = ignoredKills;
    record().duringSleeps = nullptr;
}

void RecordedPlatform::duringSleeps(const std::function<void()>& action) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().duringSleeps = action;
}

std::vector<std::string> RecordedPlatform::events() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().events;
}

std::vector<int> RecordedPlatform::priorities() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().priorities;
}

std::vector<int> RecordedPlatform::killed() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().killed;
}

void RecordedPlatform::note(const std::string& event) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    add(event);
}

void RecordedPlatform::passSleep() {
    std::function<void()> action;
    {
        const std::lock_guard<std::mutex> guard(record().mutex);
        action = record().duringSleeps;
    }
    if (action)
        action();
}

bool RecordedPlatform::noteKill(int processId) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    add("kill");
    record().killed.push_back(processId);
    return record().ignoredKills-- <= 0;
}

} // namespace test
