// Saving: changes are written to the supplicant and into its configuration file.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/NetworkIds.h"
#include "settings/SavedFields.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <vector>

using namespace platwifi;

namespace {

using Names = std::vector<const char*>;

Names namesOf(const ReplyLines* adapters) {
    Names names;
    for (unsigned char i = 0; adapters && i < adapters->count; ++i) {
        if (const char* const name = adapters->data()[i])
            names.push_back(name);
    }
    return names;
}

using Networks = std::vector<WifiNetwork*>;

Networks changedOf(const WifiNetworkList& list) {
    Networks changed;
    for (WifiNetwork* network = list.getHead(); network; network = network->getNext()) {
        if (network->getNetworkDirty())
            changed.push_back(network);
    }
    return changed;
}

// Which adapters saved their configuration. The last one decides the result of the save, deliberately.
struct Saved {
    bool last = false;
    bool all = true;
};

Saved saveConfigurations(WifiUtil& util, const Names& names) {
    Saved saved;
    for (const char* const name : names) {
        saved.last = util.saveConfiguration(name);
        saved.all = saved.all && saved.last;
    }
    return saved;
}

void reloadConfigurations(WifiUtil& util, const Names& names) {
    for (const char* const name : names)
        util.reloadConfiguration(name);
}

} // namespace

int WifiHostSettings::saveNetworkSettings() noexcept {
    const SettingsLock lock(*this);
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util)
        return 0;
    return !networkList || saveChanges(*util) ? 1 : 0;
}

// A network whose id is not known keeps its changes. The others are saved, and the result is a failure.
bool WifiHostSettings::saveChanges(WifiUtil& util) {
    const Networks changed = changedOf(*networkList);
    if (!changed.empty() && !networkIds->confirm(util, adapterName()))
        return false;
    std::size_t written = 0;
    for (WifiNetwork* const network : changed)
        written += writeNetwork(util, *network) ? 1 : 0;
    const bool isSaved = (written == 0 && networkList->isValid()) || saveConfiguration(util);
    return isSaved && written == changed.size();
}

bool WifiHostSettings::writeNetwork(WifiUtil& util, WifiNetwork& network) {
    if (!networkIds->isKnown(network))
        return false;
    saveDirtyFields(util, adapterName(), network,
                    [&](const char* key, const char* value, bool accepted) {
                        networkIds->written(network, key, value, accepted);
                    });
    return true;
}

bool WifiHostSettings::saveConfiguration(WifiUtil& util) {
    const Names names = namesOf(adapterNames.get());
    const Saved saved = saveConfigurations(util, names);
    if (!saved.last)
        return false;
    reloadConfigurations(util, names);
    networkIds->saved(saved.all);
    if (watchdog)
        watchdog->sendSaveSettingsSignal();
    networkList->validateDatabase();
    return true;
}
