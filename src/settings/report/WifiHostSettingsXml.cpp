// The state of the settings as an XML document.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "platform/BufferedXWriter.h"
#include "settings/WifiHostSettings.h"
#include "settings/report/NetworkElements.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

using namespace platwifi;

namespace {

constexpr const char* NO_ADAPTER = "Unknown";

struct Host {
    const char* adapter; // null for none
    bool isEnabled;
    unsigned int state;
    const WifiNetwork* current; // null for none
};

void writeHost(AttributeWriter& out, const Host& host) {
    out.raw("<wifiHostSettings");
    out.text("adapter", host.adapter ? host.adapter : NO_ADAPTER);
    out.boolean("wifiEnabled", host.isEnabled);
    out.number("currentDaemonState", host.state);
    out.text("currentNetwork", host.current ? host.current->getSsid() : nullptr);
    out.number("currentNetworkState", host.current ? host.current->getNetworkStatus() : 0);
    out.raw(">\n");
}

void writeDatabase(AttributeWriter& out, const WifiNetworkList* list, bool full) {
    const auto write = full ? writeNetwork : writeShortNetwork;
    out.raw("  <wifiNetworkDatabase");
    out.number("numberNetworks", list ? list->getCount() : 0);
    out.raw(">\n");
    const WifiNetwork* network = list ? list->getHead() : nullptr;
    for (; network; network = network->getNext())
        write(out, *network);
    out.raw("  </wifiNetworkDatabase>\n");
}

} // namespace

bool WifiHostSettings::getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors,
                                              bool full) noexcept {
    if (!out)
        return false;
    const SettingsLock lock(*this);
    refreshDatabaseNetworksStatus();
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util)
        return false;
    const char* const adapter = adapterName();
    const bool isEnabled = util->isWifiEnabled(adapter);
    const unsigned int state = adapter ? getCurrentStatus(adapter) : supplicantState;
    AttributeWriter writer(*out, errors);
    // getCurrentStatus() may have changed the current network.
    writeHost(writer, {adapter, isEnabled, state, currentNetwork});
    writeDatabase(writer, networkList, full);
    writer.raw("</wifiHostSettings>\n");
    return true;
}
