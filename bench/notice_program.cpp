// A process that notices another one's saves. It loads the settings and prints "ready". For each line of its input,
// which is a priority, it prints "waiting", waits until the first network has that priority, and prints two times of
// the monotonic clock in seconds: when its reload had begun, and when it had ended.

#include "Networks.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

namespace {

constexpr std::chrono::milliseconds POLL_PAUSE{5};

double now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(time).count();
}

// Waits while a reload holds the lock.
unsigned int priority() {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    const platwifi::SettingsLock lock(settings);
    const WifiNetwork* const network = settings.getNetwork(bench::WLAN, bench::ssidOf(0).c_str());
    return network ? network->getPriority() : 0;
}

// The look that first sees the new priority began when the reload held the lock already, or was about to take it.
void awaitPriority(unsigned int expected) {
    double begin = now();
    while (priority() != expected) {
        std::this_thread::sleep_for(POLL_PAUSE);
        begin = now();
    }
    std::printf("%.6f %.6f\n", begin, now());
    std::fflush(stdout);
}

void say(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

} // namespace

int main() {
    priority();
    say("ready");
    for (unsigned int expected = 0; std::cin >> expected;) {
        say("waiting");
        awaitPriority(expected);
    }
    std::_Exit(0); // at once: the threads have nothing to save
}
