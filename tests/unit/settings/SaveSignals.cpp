#include "SaveSignals.h"

#include "watchdog/WifiHostSettingsWatchdog.h"

namespace test {

bool SaveSignals::canInitialize = true;
int SaveSignals::count = 0;
std::function<void()> SaveSignals::atEach;

void SaveSignals::reset() {
    canInitialize = true;
    count = 0;
    atEach = nullptr;
}

} // namespace test

using test::SaveSignals;

WifiHostSettingsWatchdog::WifiHostSettingsWatchdog() noexcept
    : block(nullptr), shmCreator(false), threadId(NO_THREAD), hasBegun(false), runner(NO_THREAD),
      destroyed(nullptr) {}

WifiHostSettingsWatchdog::~WifiHostSettingsWatchdog() = default;

bool WifiHostSettingsWatchdog::initialize() noexcept {
    return SaveSignals::canInitialize;
}

void WifiHostSettingsWatchdog::start() noexcept {}

void WifiHostSettingsWatchdog::stop() noexcept {}

void WifiHostSettingsWatchdog::sendSaveSettingsSignal() noexcept {
    ++SaveSignals::count;
    if (SaveSignals::atEach)
        SaveSignals::atEach();
}

void platwifi::setReloadHook(ReloadHook /*hook*/) noexcept {}
