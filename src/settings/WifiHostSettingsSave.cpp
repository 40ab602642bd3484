// What was changed goes to the supplicant, and into its configuration file.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
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

// Fields are told to the first one only.
const char* firstOf(const ReplyLines* adapters) {
    return adapters ? adapters->data()[0] : nullptr;
}

// Whether there was anything to write.
bool saveNetworks(WifiUtil& util, const char* iface, const WifiNetworkList& networks) {
    bool wrote = false;
    for (WifiNetwork* network = networks.getHead(); network; network = network->getNext()) {
        if (!network->getNetworkDirty())
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
    const bool wasValid = networkList->isValid();
    const bool wrote = saveNetworks(*util, firstOf(adapterNames.get()), *networkList);
    if (!wrote && wasValid)
        return 1;
    if (!saveConfigurations(*util, namesOf(adapterNames.get())))
        return 0;
    reloadConfigurations(*util, namesOf(adapterNames.get()));
    numbersAreStale = numbersAreStale || !wasValid;
    if (watchdog)
        watchdog->sendSaveSettingsSignal();
    networkList->validateDatabase();
    return 1;
}
