// Saving: changes are written to the supplicant and into its configuration file.

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/NetworkFunctions.h"
#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/NetworkIds.h"
#include "settings/SavedFields.h"
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

// A network with changes, and the fields that were dirty before the save.
struct Change {
    WifiNetwork* network;
    FieldSet dirty;
};

std::vector<Change> changesOf(const WifiNetworkList& list) {
    std::vector<Change> changes;
    for (WifiNetwork* network = list.getHead(); network; network = network->getNext()) {
        if (network->getNetworkDirty())
            changes.push_back({network, NetworkFields::of(*network).dirtyFields()});
    }
    return changes;
}

void restore(const std::vector<Change>& changes) {
    for (const Change& change : changes)
        NetworkFields::of(*change.network).setDirtyFields(change.dirty);
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

void reportRefusal(ErrorHandler& errors, const std::string& field) {
    const std::string text = "the supplicant refused the field " + field +
                             "; nothing was saved; correct its value, then save again";
    MessageBundle bundle("settings.refused-field", text.c_str());
    errors.error(&bundle);
}

} // namespace

int WifiHostSettings::saveNetworkSettings() noexcept {
    return saveNetworkSettings(nullptr);
}

int WifiHostSettings::saveNetworkSettings(ErrorHandler* errors) noexcept {
    const SettingsLock lock(*this);
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util)
        return 0;
    const bool isSaved = !networkList || saveChanges(*util);
    if (!isSaved)
        reportRefusedField(errors);
    return isSaved ? 1 : 0;
}

int WifiHostSettings::writeNetworkSettings(ErrorHandler* errors) noexcept {
    const SettingsLock lock(*this);
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util)
        return 0;
    const bool isWritten = !networkList || writeChanges(*util).isComplete;
    if (!isWritten)
        reportRefusedField(errors);
    return isWritten ? 1 : 0;
}

void WifiHostSettings::reportRefusedField(ErrorHandler* errors) const {
    if (errors && rule::REFUSED_FIELD_FAILS_SAVE() && !refusedField.empty())
        reportRefusal(*errors, refusedField);
}

// A network whose id is not known keeps its changes. The others are saved, and the result is a failure.
bool WifiHostSettings::saveChanges(WifiUtil& util) {
    const Written written = writeChanges(util);
    if (written.isRefused)
        return false;
    const bool isSaved =
        (written.networks == 0 && networkList->isValid()) || saveConfiguration(util);
    return isSaved && written.isComplete;
}

WifiHostSettings::Written WifiHostSettings::writeChanges(WifiUtil& util) {
    const std::vector<Change> changes = changesOf(*networkList);
    refusedField.clear();
    if (!changes.empty() && !networkIds->confirm(util, adapterName()))
        return {};
    std::size_t written = 0;
    for (const Change& change : changes)
        written += writeNetwork(util, *change.network) ? 1 : 0;
    if (rule::REFUSED_FIELD_FAILS_SAVE() && !refusedField.empty()) {
        restore(changes);
        takeBack(util);
        return {};
    }
    return {false, written, written == changes.size()};
}

// The supplicant reads its file again, which has nothing of what was sent, and no network that was added since
// the last save; those are made anew. All changes stay dirty in memory.
void WifiHostSettings::takeBack(WifiUtil& util) {
    reloadConfigurations(util, namesOf(adapterNames.get()));
    networkIds->takenBack();
    if (!networkIds->confirm(util, adapterName()))
        return;
    for (WifiNetwork* network = networkList->getHead(); network; network = network->getNext()) {
        unsigned char id = 0;
        if (!networkIds->isKnown(*network) && !hasSsid(network, NO_SSID) && network->getSsid() &&
            util.createNetwork(adapterName(), network->getSsid(), &id)) {
            networkIds->removed(*network);
            network->setNetworkId(id);
            networkIds->added(*network, network->getSsid());
        }
    }
}

bool WifiHostSettings::writeNetwork(WifiUtil& util, WifiNetwork& network) {
    if (!networkIds->isKnown(network))
        return false;
    const char* const refused = saveDirtyFields(
        util, adapterName(), network, [&](const char* key, const char* value, bool accepted) {
            networkIds->written(network, key, value, accepted);
        });
    if (refused && refusedField.empty())
        refusedField = refused;
    return true;
}

bool WifiHostSettings::saveConfiguration(WifiUtil& util) {
    enableOthers(util); // before the supplicant writes them as disabled
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
