#include "jni/ServiceFunctions.h"

#include "Profile.h"
#include "TextCopy.h"
#include "jni/NetworkProperties.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

// Loads them if necessary.
WifiHostSettings& settingsFor(ErrorHandler* errors) {
    return *WifiHostSettings::getInstance(errors);
}

char** newList(unsigned char capacity) {
    return new char* [capacity] {};
}

void freeList(char** list, unsigned char capacity) {
    for (unsigned char i = 0; i < capacity; ++i)
        delete[] list[i];
    delete[] list;
}

// Gives the caller a copy, or null for null. Returns whether there is a text.
int putCopy(const char* text, char** out) {
    *out = text ? copyOf(text) : nullptr;
    return text ? 1 : 0;
}

} // namespace

int hashCACertificates(ErrorHandler* /*errors*/) noexcept {
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->hashCACertificates() ? 1 : 0;
}

int isWifiEnabled(ErrorHandler* /*errors*/, const char* iface) noexcept {
    WifiUtil* const util = WifiUtil::getInstance();
    return util ? util->isWifiEnabled(iface) : 0;
}

int discoverNetworks(ErrorHandler* /*errors*/, const char* iface, char*** listOut,
                     unsigned char capacity, unsigned char* count) noexcept {
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !listOut || !count || !util->scanNetworks(iface))
        return 0;
    *listOut = newList(capacity);
    if (util->discoverNetworks(iface, *listOut, capacity, count))
        return 1;
    freeList(*listOut, capacity);
    *listOut = nullptr;
    *count = 0;
    return 0;
}

int getWifiAdapter(ErrorHandler* errors, char** nameOut) noexcept {
    if (!nameOut)
        return 0;
    ReplyLines names(rule::MOST_ADAPTERS());
    settingsFor(errors).getWifiAdapters(names.data(), names.capacity(), &names.count);
    return putCopy(names.count > 0 ? names.data()[0] : nullptr, nameOut);
}

// The lock protects the current network, which the status looks up.
int getDaemonStatus(ErrorHandler* errors, const char* iface) noexcept {
    WifiHostSettings& settings = settingsFor(errors);
    const SettingsLock lock(settings);
    return static_cast<int>(settings.getCurrentStatus(iface));
}

int getCurrentNetwork(ErrorHandler* errors, const char* iface, char** ssidOut) noexcept {
    if (!ssidOut)
        return 0;
    WifiHostSettings& settings = settingsFor(errors);
    const SettingsLock lock(settings);
    const WifiNetwork* const network = settings.getCurrentNetwork(iface);
    return putCopy(network ? network->getSsid() : nullptr, ssidOut);
}

int addWifiNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return settingsFor(errors).addNetwork(iface, ssid);
}

int removeWifiNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return settingsFor(errors).removeNetwork(iface, ssid);
}

int connectToNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return settingsFor(errors).connectNetwork(iface, ssid);
}

int disconnectFromNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return settingsFor(errors).disconnectNetwork(iface, ssid);
}

int roamNetworks(ErrorHandler* errors, const char* iface) noexcept {
    return settingsFor(errors).roamNetworks(iface);
}

int setNetworkParameters(ErrorHandler* errors, const char* iface, const char* ssid,
                         const char* const* names, const char* const* values,
                         unsigned int count) noexcept {
    WifiHostSettings& settings = settingsFor(errors);
    const SettingsLock lock(settings);
    WifiNetwork* const network = settings.getNetwork(iface, ssid);
    if (!network)
        return 0;
    const unsigned int pairs = names && values ? count : 0;
    for (unsigned int i = 0; i < pairs; ++i)
        setNetworkProperty(*network, names[i], values[i], errors);
    return 1;
}

int setHostParameters(ErrorHandler* errors, const char* /*iface*/, const char* const* /*names*/,
                      const char* const* /*values*/, unsigned int /*count*/) noexcept {
    const SettingsLock lock(settingsFor(errors));
    return 1;
}

int saveWifiHostSettings(ErrorHandler* errors) noexcept {
    return settingsFor(errors).saveNetworkSettings(errors);
}

int getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors, bool full) noexcept {
    if (!out)
        return 0;
    settingsFor(errors).getWifiHostSettingsXML(out, errors, full); // its result plays no part
    return 1;
}

int setWifiProfile(ErrorHandler* /*errors*/, const char* name) noexcept {
    return chooseProfile(name) ? 1 : 0;
}

int stopWifiService(ErrorHandler* /*errors*/) noexcept {
    WifiHostSettings::unload();
    return 1;
}
