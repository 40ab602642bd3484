// The instance, its locks, and the reload of everything.

#include "settings/WifiHostSettings.h"

#include "model/WifiNetworkList.h"
#include "platform/MutexGuard.h"
#include "settings/NullExceptionHandler.h"
#include "settings/SettingsLock.h"
#include "supplicant/ReplyLines.h"
#include "watchdog/SettingsDoor.h"
#include "watchdog/WifiHostSettingsWatchdog.h"
#include "zam/Zam.h"

using namespace platwifi;

namespace {

// Held while the instance is made, ended or reloaded by the refresh thread. Whoever waits for it holds
// no lock of the instance; the refresh thread does not wait for it.
std::mutex& lifecycleMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

std::atomic<WifiHostSettings*> WifiHostSettings::INSTANCE{nullptr};

WifiHostSettings* WifiHostSettings::make(ErrorHandler* errors) {
    if (errors)
        return new WifiHostSettings(errors);
    const std::unique_ptr<ErrorHandler> nobody = std::make_unique<NullExceptionHandler>();
    return new WifiHostSettings(nobody.get());
}

void WifiHostSettings::end() noexcept {
    delete INSTANCE.exchange(nullptr);
}

WifiHostSettings* WifiHostSettings::getInstance(ErrorHandler* errors) noexcept {
    if (WifiHostSettings* const settings = INSTANCE)
        return settings;
    const std::lock_guard<std::mutex> guard(lifecycleMutex());
    if (!INSTANCE)
        INSTANCE = make(errors);
    return INSTANCE;
}

WifiHostSettings* WifiHostSettings::reload(ErrorHandler* errors) noexcept {
    const std::lock_guard<std::mutex> guard(lifecycleMutex());
    end();
    INSTANCE = make(errors);
    return INSTANCE;
}

void WifiHostSettings::unload() noexcept {
    const std::lock_guard<std::mutex> guard(lifecycleMutex());
    end();
}

// Nothing is reported: an instance that could not be loaded tells so by having no networks.
WifiHostSettings::WifiHostSettings(ErrorHandler* /*errors*/)
    : lastStatusRefresh(Zam::getInstance()->milliseconds()), currentNetwork(nullptr),
      supplicantState(WPA_STATE_UNKNOWN) {
    PlatformUtil::createMutex(&entrance);
    startWatchdog();
    PlatformUtil::createMutex(&_sync);
    networkList = std::make_unique<WifiNetworkList>();
    if (!initializeSettings())
        giveUp();
}

// The entrance is enough: nobody gets past it to the other locks. It ends while it is held.
WifiHostSettings::~WifiHostSettings() {
    PlatformUtil::lockMutex(&entrance);
    giveUp();
    PlatformUtil::destroyMutex(&_sync);
    PlatformUtil::destroyMutex(&entrance);
}

void WifiHostSettings::lockNetworks() noexcept {
    PlatformUtil::lockMutex(&entrance);
    if (networkList)
        networkList->lock();
}

void WifiHostSettings::unlockNetworks() noexcept {
    if (networkList)
        networkList->unlock();
    PlatformUtil::unlockMutex(&entrance);
}

bool WifiHostSettings::lockSettings() noexcept {
    lockNetworks();
    PlatformUtil::lockMutex(&_sync);
    return true;
}

bool WifiHostSettings::unlockSettings() noexcept {
    PlatformUtil::unlockMutex(&_sync);
    unlockNetworks();
    return true;
}

bool WifiHostSettings::refreshAllSettings() noexcept {
    const MutexGuard guard(entrance);
    if (!loadAgain())
        giveUp();
    return true;
}

bool WifiHostSettings::loadAgain() {
    const SettingsLock lock(*this);
    if (networkList)
        networkList->removeAllFromList();
    releaseAdapterNames();
    forgetState();
    return initializeSettings();
}

bool WifiHostSettings::tryRefresh() noexcept {
    if (PlatformUtil::tryLockMutex(&entrance) != 0)
        return false;
    refreshAllSettings();
    PlatformUtil::unlockMutex(&entrance);
    return true;
}

bool platwifi::refreshSettings() noexcept {
    const std::unique_lock<std::mutex> lifecycle(lifecycleMutex(), std::try_to_lock);
    if (!lifecycle)
        return false;
    if (!WifiHostSettings::INSTANCE)
        WifiHostSettings::INSTANCE = WifiHostSettings::make(nullptr);
    return WifiHostSettings::INSTANCE.load()->tryRefresh();
}

void WifiHostSettings::startWatchdog() {
    watchdog = std::make_unique<WifiHostSettingsWatchdog>();
    if (watchdog->initialize())
        watchdog->start();
    else
        watchdog.reset();
}

void WifiHostSettings::stopWatchdog() noexcept {
    if (watchdog)
        watchdog->stop();
    watchdog.reset();
}

void WifiHostSettings::releaseAdapterNames() noexcept {
    const std::lock_guard<std::mutex> guard(adapterNamesMutex);
    adapterNames.reset();
}

void WifiHostSettings::forgetState() noexcept {
    supplicantState = WPA_STATE_UNKNOWN;
    currentNetwork = nullptr;
    lastStatusRefresh = 0;
    networkIds.forget();
}

// What is left is an instance without networks, adapters and refresh thread. The caller holds the
// entrance and none of the locks behind it, which the refresh thread may still be holding: stopping
// it waits for that.
void WifiHostSettings::giveUp() noexcept {
    stopWatchdog();
    networkList.reset();
    releaseAdapterNames();
    forgetState();
}
