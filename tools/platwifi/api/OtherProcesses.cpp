#include "api/OtherProcesses.h"

#include "process/SharedBlock.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <mutex>

namespace cli::api {
namespace {

// Never deleted: to detach would remove the name of the block from those that share it.
WifiHostSettingsWatchdog* attached() {
    static WifiHostSettingsWatchdog* const watchdog = [] {
        auto* const made = new WifiHostSettingsWatchdog();
        made->initialize();
        return made;
    }();
    return watchdog;
}

} // namespace

void notifyOtherProcesses() {
    static std::mutex mutex;
    const std::lock_guard<std::mutex> guard(mutex);
    if (isBlockShared())
        attached()->sendRefreshSettingsSignal();
}

} // namespace cli::api
