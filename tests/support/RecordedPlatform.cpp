#include "support/RecordedPlatform.h"

#include <mutex>

namespace test {
namespace {

struct Record {
    std::mutex mutex;
    std::vector<std::string> events;
    std::vector<int> killPriorities;
    int swallowedKills = 0;
};

Record& record() {
    static Record instance;
    return instance;
}

} // namespace

void RecordedPlatform::begin(int swallowedKills) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.clear();
    record().killPriorities.clear();
    record().swallowedKills = swallowedKills;
}

std::vector<std::string> RecordedPlatform::events() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().events;
}

std::vector<int> RecordedPlatform::killPriorities() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().killPriorities;
}

void RecordedPlatform::note(const std::string& event) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.push_back(event);
}

bool RecordedPlatform::noteKill(int priority) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.emplace_back("kill");
    record().killPriorities.push_back(priority);
    return record().swallowedKills-- <= 0;
}

} // namespace test
