// What was changed goes to the supplicant, and into its configuration file.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/NetworkNumbers.h"
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

// Whether any was written: one without a number keeps its changes for another time.
bool saveNetworks(WifiUtil& util, const char* iface, const Networks& changed,
                  const UnnumberedNetworks& unnumbered) {
    bool wrote = false;
    for (WifiNetwork* const network : changed) {
        if (unnumbered.count(network) != 0)
            continue;
        saveDirtyFields(util, iface, *network);
        wrote = true;
    }
    return wrote;
}

// The last adapter decides, deliberately.
bool saveConfigurations(WifiUtil& util, const Names& names) {
    bool saved = false;
    for (const char* const name : names)
        saved = util.saveConfiguration(name);
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
    if (!networkList)
        return 1;
    bool wrote = false;
    if (!writeChanges(*util, wrote))
        return 0;
    if (!wrote && networkList->isValid())
        return 1;
    return saveConfiguration(*util) ? 1 : 0;
}

bool WifiHostSettings::writeChanges(WifiUtil& util, bool& wrote) {
    const Networks changed = changedOf(*networkList);
    UnnumberedNetworks unnumbered;
    if (!changed.empty() && !confirmNumbers(util, unnumbered))
        return false;
    wrote = saveNetworks(util, adapterName(), changed, unnumbered);
    return true;
}

// A list that has got or lost networks is counted anew by the supplicant when it reads its file.
bool WifiHostSettings::saveConfiguration(WifiUtil& util) {
    const Names names = namesOf(adapterNames.get());
    if (!saveConfigurations(util, names))
        return false;
    reloadConfigurations(util, names);
    numbersAreStale = numbersAreStale || !networkList->isValid();
    if (numbersAreStale)
        knownSsids = knownAfterSave(*networkList, knownSsids);
    if (watchdog)
        watchdog->sendSaveSettingsSignal();
    networkList->validateDatabase();
    return true;
}
