// The instance, its locks, loading and unloading.

#include "settings/WifiHostSettings.h"

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/WifiNetworkList.h"
#include "platform/Deadline.h"
#include "settings/NetworkIds.h"
#include "settings/replies/PrintedSsid.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"
#include "zam/Zam.h"

using namespace platwifi;

namespace {

// How long the refresh thread waits for the gate. It must not wait without limit: a thread that unloads
// holds the gate and waits for the refresh thread to end. If it did not wait at all, it would hardly ever
// get the gate in a program that uses the settings most of the time.
constexpr unsigned int REFRESH_WAIT_SECONDS = 1;

// The lock of the list is the gate of the settings, too.
using Gate = std::lock_guard<WifiNetworkList>;

constexpr std::uint64_t REFRESH_PAUSE_MS = 5000; // between two updates of the networks' status

// Set when the library is loaded, so that a watchdog which a program makes by itself reloads, too.
[[maybe_unused]] const bool REFRESHES = (setReloadHook(refreshSettings), true);

} // namespace

// Never deleted, so that a thread may use it while another one unloads.
WifiHostSettings& WifiHostSettings::instance() {
    static WifiHostSettings* const settings = [] {
        fixProfile();
        return new WifiHostSettings(Unloaded{});
    }();
    return *settings;
}

WifiHostSettings* WifiHostSettings::getInstance(ErrorHandler* errors) noexcept {
    WifiHostSettings& settings = instance();
    if (!settings.isActive) {
        const Gate gate(*settings.ownList);
        settings.activate(errors);
    }
    return &settings;
}

WifiHostSettings* WifiHostSettings::reload(ErrorHandler* errors) noexcept {
    WifiHostSettings& settings = instance();
    const Gate gate(*settings.ownList);
    settings.deactivate();
    settings.activate(errors);
    return &settings;
}

void WifiHostSettings::unload() noexcept {
    WifiHostSettings& settings = instance();
    const Gate gate(*settings.ownList);
    settings.deactivate();
    *settings.networkIds =
        NetworkIds(); // with it the note of unsaved changes, which a reload keeps
}

WifiHostSettings::WifiHostSettings(Unloaded /*tag*/) noexcept
    : lastStatusRefresh(0), currentNetwork(nullptr), ownList(std::make_unique<WifiNetworkList>()),
      networkList(nullptr), supplicantState(WPA_STATE_UNKNOWN),
      networkIds(std::make_unique<NetworkIds>()) {
    PlatformUtil::createMutex(&_sync);
}

WifiHostSettings::WifiHostSettings(ErrorHandler* errors) : WifiHostSettings(Unloaded{}) {
    const Gate gate(*ownList);
    activate(errors);
}

// Every thread takes the gate before any other lock, so locking the gate keeps all of them out. The list
// destroys it while locked, so that no thread can take it in between.
WifiHostSettings::~WifiHostSettings() {
    ownList->lock();
    discardState();
    PlatformUtil::destroyMutex(&_sync);
}

void WifiHostSettings::activate(ErrorHandler* errors) {
    if (isActive)
        return;
    if (errors) {
        load(errors);
    } else {
        NullExceptionHandler none;
        load(&none);
    }
    isActive = true;
}

void WifiHostSettings::deactivate() noexcept {
    if (isActive && !disabledOthers.empty()) {
        const SettingsLock lock(*this);
        if (WifiUtil* const util = WifiUtil::getInstance())
            enableOthers(*util);
    }
    isActive = false;
    discardState();
}

// No error is reported: an instance that could not be loaded has no networks. The time of the last status
// update is taken before the load.
void WifiHostSettings::load(ErrorHandler* /*errors*/) {
    stampStatusRefresh(Zam::getInstance()->milliseconds());
    startWatchdog();
    networkList = ownList.get();
    if (!initializeSettings())
        discardState();
}

void WifiHostSettings::lockNetworks() noexcept {
    ownList->lock();
    activate(nullptr); // another thread may have unloaded since the caller got the instance
}

void WifiHostSettings::unlockNetworks() noexcept {
    ownList->unlock();
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

WifiNetwork* WifiHostSettings::getNetwork(const char* /*iface*/, const char* ssid) const noexcept {
    WifiNetwork* const first = networkList ? networkList->getHead() : nullptr;
    WifiNetwork* const network = NetworkFields::find(first, ssid);
    if (network || !first || !ssid || !rule::SSIDS_ARE_BYTES())
        return network;
    return NetworkFields::find(first, ssidInMemory(ssid).c_str()); // as the supplicant prints it
}

bool WifiHostSettings::refreshAllSettings() noexcept {
    const Gate gate(*ownList);
    if (!isActive)
        activate(nullptr);
    else if (!loadAgain())
        discardState();
    return true;
}

bool WifiHostSettings::loadAgain() {
    const SettingsLock lock(*this);
    ownList->removeAllFromList();
    releaseAdapterNames();
    forgetState();
    return initializeSettings();
}

// For the refresh thread. False when the gate was held all the time that it may wait.
bool platwifi::refreshSettings() noexcept {
    WifiHostSettings& settings = WifiHostSettings::instance();
    const auto deadline = platform::deadlineAfter(REFRESH_WAIT_SECONDS);
    if (!settings.ownList->lockUntil(deadline))
        return false;
    settings.refreshAllSettings();
    settings.ownList->unlock();
    return true;
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
    stampStatusRefresh(0);
    networkIds->forget();
}

bool WifiHostSettings::statusRefreshIsDue(std::uint64_t now) const noexcept {
    const std::lock_guard<std::mutex> guard(refreshTimeMutex);
    return now - lastStatusRefresh >= REFRESH_PAUSE_MS;
}

void WifiHostSettings::stampStatusRefresh(std::uint64_t time) noexcept {
    const std::lock_guard<std::mutex> guard(refreshTimeMutex);
    lastStatusRefresh = time;
}

// The result is an instance without networks, adapters and refresh thread. No deadlock is possible: the refresh
// thread takes the gate, which this thread holds, before any other lock of the settings, and does not wait
// for the gate without limit.
void WifiHostSettings::discardState() noexcept {
    stopWatchdog();
    ownList->removeAllFromList();
    networkList = nullptr;
    releaseAdapterNames();
    forgetState();
}
