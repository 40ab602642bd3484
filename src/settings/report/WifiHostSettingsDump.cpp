// The state of the settings as text, for diagnosis.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "platform/MutexGuard.h"
#include "settings/WifiHostSettings.h"
#include "settings/report/DumpWords.h"
#include "settings/report/NetworkDump.h"
#include "supplicant/ReplyLines.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

using namespace platwifi;

namespace {

void printState(const WifiNetwork* current, WpaState state) {
    if (current) {
        const char* const ssid = current->getSsid();
        std::fprintf(stderr, "Currently associated with: %s\n", ssid ? ssid : "");
    }
    std::fprintf(stderr, "Current WPA_STATUS        :%s\n", wpaStateWord(state).c_str());
}

} // namespace

void WifiHostSettings::dump() noexcept {
    lockNetworks();
    refreshDatabaseNetworksStatus();
    std::fputs("Network Database: \n", stderr);
    const WifiNetwork* network = networkList ? networkList->getHead() : nullptr;
    for (; network; network = network->getNext())
        printNetwork(stderr, *network);
    {
        const MutexGuard guard(_sync);
        printState(currentNetwork, supplicantState);
    }
    unlockNetworks();
}
