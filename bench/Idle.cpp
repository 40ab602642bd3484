// An idle process with the settings loaded, compared with one in which a second thread wakes once a second.

#include "Measurements.h"
#include "Subject.h"

#include <chrono>
#include <iostream>
#include <thread>

namespace bench {
namespace {

constexpr int ROUNDS = 5;
constexpr int ROUND_SECONDS =
    6; // twice three: the refresh thread waits for three signals in turn, a second each

struct Usage {
    std::vector<double> switches; // context switches a second
    std::vector<double> time;     // processor time a second
};

/// Measures what a process has used since the last call.
class Meter {
public:
    explicit Meter(const Subject& subject) : m_subject(subject) {}

    void begin() {
        m_switches = m_subject.switches();
        m_time = m_subject.processorTime();
    }

    void take() {
        m_usage.switches.push_back((m_subject.switches() - m_switches) / ROUND_SECONDS);
        m_usage.time.push_back((m_subject.processorTime() - m_time) / ROUND_SECONDS);
        begin();
    }

    const Usage& usage() const { return m_usage; }

private:
    const Subject& m_subject;
    double m_switches = 0;
    double m_time = 0;
    Usage m_usage;
};

std::string timesASecond(double times) {
    return std::to_string(times).substr(0, 4) + "/s";
}

std::string timeASecond(double seconds) {
    return inSeconds(seconds) + "/s";
}

} // namespace

Rows measureIdle() {
    Subject settings("settings");
    Subject second("second");
    settings.begin();
    second.begin();
    Meter meter(settings);
    Meter baseline(second);
    meter.begin();
    baseline.begin();
    for (int round = 0; round < ROUNDS; ++round) {
        std::this_thread::sleep_for(std::chrono::seconds(ROUND_SECONDS));
        meter.take();
        baseline.take();
        std::cout << '.' << std::flush;
    }
    const char* const other = "a thread that wakes once a second";
    const Usage& used = meter.usage();
    const Usage& least = baseline.usage();
    return {
        {"Wake-ups of an idle process with the settings", other,
         ratios(used.switches, least.switches),
         medians(used.switches, least.switches, timesASecond),
         "How often the refresh thread interrupts deep sleep of the processor."},
        {"Processor time of an idle process with the settings", other,
         ratios(used.time, least.time), medians(used.time, least.time, timeASecond),
         "What the library costs while it is loaded and not called.", "idle-time"},
    };
}

} // namespace bench
