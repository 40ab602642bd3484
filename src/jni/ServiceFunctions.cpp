#include "jni/ServiceFunctions.h"

#include "TextCopy.h"
#include "jni/LockedSettings.h"
#include "jni/NetworkProperties.h"
#include "model/WifiNetwork.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

constexpr unsigned char ADAPTERS = 2;

char** newList(unsigned char capacity) {
    return new char* [capacity] {};
}

void freeList(char** list, unsigned char capacity) {
    for (unsigned char i = 0; i < capacity; ++i)
        delete[] list[i];
    delete[] list;
}

// Hands the caller a copy, or null for null. Returns whether there is a text.
int handOver(const char* text, char** out) {
    *out = text ? copyOf(text) : nullptr;
    return text ? 1 : 0;
}

// An operation of the settings, which takes the locks it needs.
template <typename Operation, typename... Texts>
int operate(ErrorHandler* errors, Operation operation, Texts... texts) {
    WifiHostSettings* const settings = WifiHostSettings::getInstance(errors);
    return settings ? (settings->*operation)(texts...) : 0;
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
    ReplyLines names(ADAPTERS);
    if (const WifiHostSettings* const settings = WifiHostSettings::getInstance(errors))
        settings->getWifiAdapters(names.data(), names.capacity(), &names.count);
    return handOver(names.count > 0 ? names.data()[0] : nullptr, nameOut);
}

// The status looks networks up, the current one among them: it wants the lock.
int getDaemonStatus(ErrorHandler* errors, const char* iface) noexcept {
    return withSettings(errors, [=](WifiHostSettings& settings) {
        return static_cast<int>(settings.getCurrentStatus(iface));
    });
}

int getCurrentNetwork(ErrorHandler* errors, const char* iface, char** ssidOut) noexcept {
    if (!ssidOut)
        return 0;
    *ssidOut = nullptr;
    return withSettings(errors, [=](WifiHostSettings& settings) {
        const WifiNetwork* const network = settings.getCurrentNetwork(iface);
        return handOver(network ? network->getSsid() : nullptr, ssidOut);
    });
}

int addWifiNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return operate(errors, &WifiHostSettings::addNetwork, iface, ssid);
}

int removeWifiNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return operate(errors, &WifiHostSettings::removeNetwork, iface, ssid);
}

int connectToNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return operate(errors, &WifiHostSettings::connectNetwork, iface, ssid);
}

int disconnectFromNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept {
    return operate(errors, &WifiHostSettings::disconnectNetwork, iface, ssid);
}

int roamNetworks(ErrorHandler* errors, const char* iface) noexcept {
    return operate(errors, &WifiHostSettings::roamNetworks, iface);
}

int setNetworkParameters(ErrorHandler* errors, const char* iface, const char* ssid,
                         const char* const* names, const char* const* values,
                         unsigned int count) noexcept {
    const unsigned int pairs = names && values ? count : 0;
    return withNetwork(errors, iface, ssid, 0, [=](WifiNetwork& network) {
        for (unsigned int i = 0; i < pairs; ++i)
            setNetworkProperty(network, names[i], values[i], errors);
        return 1;
    });
}

int setHostParameters(ErrorHandler* errors, const char* /*iface*/, const char* const* /*names*/,
                      const char* const* /*values*/, unsigned int /*count*/) noexcept {
    return withSettings(errors, [](WifiHostSettings&) { return 1; });
}

int saveWifiHostSettings(ErrorHandler* errors) noexcept {
    return operate(errors, &WifiHostSettings::saveNetworkSettings);
}

int getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors, bool full) noexcept {
    WifiHostSettings* const settings = out ? WifiHostSettings::getInstance(errors) : nullptr;
    if (!settings)
        return 0;
    settings->getWifiHostSettingsXML(out, errors, full); // a short document is one as well
    return 1;
}

int stopWifiService(ErrorHandler* /*errors*/) noexcept {
    WifiHostSettings::unload();
    return 1;
}
