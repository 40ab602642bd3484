// The time until other processes have noticed a save.

#include "Networks.h"
#include "OtherProcess.h"
#include "curves/Curves.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/Supplicant.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

constexpr unsigned int NUMBERS[] = {1, 4, 8, 16, 32};
constexpr unsigned int NETWORKS = 8; // one of each kind
constexpr int ROUNDS = 3;
constexpr double LONGEST_CYCLES =
    6; // seconds: one cycle of the sender's thread and one of the receiver's

using Processes = std::vector<std::unique_ptr<OtherProcess>>;

struct Times {
    double noticed = 0; // when the last one had begun its reload
    double reloaded = 0;
};

double now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(time).count();
}

// They load at the same time.
Processes start(unsigned int number) {
    Processes processes;
    for (unsigned int i = 0; i < number; ++i)
        processes.push_back(std::make_unique<OtherProcess>(NOTICE_PROGRAM));
    for (const auto& process : processes)
        process->awaitLine("ready");
    return processes;
}

// When the save had ended.
double save(unsigned char priority) {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    const platwifi::SettingsLock lock(settings);
    settings.getNetwork(WLAN, ssidOf(0).c_str())->setPriority(priority);
    if (settings.saveNetworkSettings() != 1)
        throw std::runtime_error("the settings cannot be saved");
    return now();
}

Times lastOf(const Processes& processes) {
    Times last;
    for (const auto& process : processes) {
        Times times;
        if (!(std::istringstream(process->line()) >> times.noticed >> times.reloaded))
            throw std::runtime_error("a process did not notice the save");
        last.noticed = std::max(last.noticed, times.noticed);
        last.reloaded = std::max(last.reloaded, times.reloaded);
    }
    return last;
}

Times runRound(const Processes& processes, unsigned char priority) {
    for (const auto& process : processes) {
        process->send(std::to_string(priority));
        process->awaitLine("waiting");
    }
    const double saved = save(priority);
    const Times last = lastOf(processes);
    std::cout << '.' << std::flush;
    return {last.noticed - saved, last.reloaded - saved};
}

struct Measured {
    Series noticed{"the last one has noticed it", {}};
    Series reloaded{"the last one has loaded all anew", {}};
    Series limit{"two cycles of a refresh thread", {}};
};

void measure(Measured& measured, unsigned int number, unsigned char& priority) {
    const Processes processes = start(number);
    const double x = number;
    measured.noticed.points.push_back({x, {}});
    measured.reloaded.points.push_back({x, {}});
    measured.limit.points.push_back({x, {LONGEST_CYCLES}});
    for (int round = 0; round < ROUNDS; ++round) {
        const Times times = runRound(processes, ++priority);
        measured.noticed.points.back().values.push_back(times.noticed);
        measured.reloaded.points.back().values.push_back(times.reloaded);
    }
}

} // namespace

Curve measureNoticeCurve(const test::Supplicant& supplicant) {
    supplicant.reload(networks(NETWORKS));
    supplicant.awaitStatus("wpa_state=COMPLETED");
    WifiHostSettings::getInstance(nullptr)->refreshAllSettings();
    Measured measured;
    unsigned char priority = 10; // none of the file's
    for (const unsigned int number : NUMBERS)
        measure(measured, number, priority);
    WifiHostSettings::unload();
    WifiUtil::unload();
    return {{measured.noticed, measured.reloaded},
            measured.limit,
            "One process notices it after " + inSeconds(first(measured.noticed)) +
                ", the last one of 32 after " + inSeconds(last(measured.noticed)) +
                ". It has loaded 8 networks anew after " + inSeconds(first(measured.reloaded)) +
                " and " + inSeconds(last(measured.reloaded)) + ": " +
                inSeconds(fit(measured.reloaded).slope) + " more for each process."};
}

} // namespace bench
