#include "commands/UnsavedChanges.h"

#include "client/Listing.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>

namespace cli {
namespace {

using platwifi::SettingsLock;

constexpr unsigned char NO_ID = 0; // for a command that needs no network id

bool isDisconnected(Host& host) {
    return getDaemonStatus(nullptr, host.iface().c_str()) == WPA_STATE_DISCONNECTED;
}

[[noreturn]] void refuse(const char* change, const std::string& ssid) {
    throw Failure(std::string("the supplicant did not ") + change + ' ' + shownSsid(ssid) +
                  "; platwifi doctor tells more");
}

bool isListed(const std::string& iface, const std::string& ssid) {
    bool ok = false;
    const auto networks = listedNetworks(iface, ok);
    return std::any_of(networks.begin(), networks.end(), [&](const ListedNetwork& network) {
        return isSameSsid(network.ssid, ssid);
    });
}

} // namespace

UnsavedChanges::UnsavedChanges(Context& context, Host& host)
    : m_context(context), m_host(host), m_deferred(context.interrupt),
      m_wasDisconnected(isDisconnected(host)) {}

UnsavedChanges::~UnsavedChanges() {
    if (m_isSent)
        takeBack();
}

// Under one lock, so that no reload discards edits that are not written yet.
void UnsavedChanges::add(const std::string& ssid, const Edits& edits) {
    const SettingsLock lock(m_host.settings());
    m_added = ssid;
    m_isSent = true;
    if (addWifiNetwork(nullptr, m_host.iface().c_str(), ssid.c_str()) == 0)
        refuse("add", ssid);
    keepUntried(ssid);
    edits.apply(m_host.iface(), ssid);
    write();
}

// The supplicant enables a new network, and would try it while it has only some of its properties. The selection of
// the network enables it again.
void UnsavedChanges::keepUntried(const std::string& ssid) {
    if (const WifiNetwork* const network = m_host.settings().getNetwork(nullptr, ssid.c_str()))
        driver().executeCustom(m_host.iface().c_str(), network->getNetworkId(), "disable_network",
                               nullptr);
}

void UnsavedChanges::change(const std::string& ssid, const Edits& edits) {
    const SettingsLock lock(m_host.settings());
    m_isSent = true;
    edits.apply(m_host.iface(), ssid);
    write();
    endConnectionTo(ssid);
}

// A connection with the old values would prove nothing.
void UnsavedChanges::endConnectionTo(const std::string& ssid) {
    if (isSameSsid(m_host.currentNetwork(), ssid))
        disconnectFromNetwork(nullptr, m_host.iface().c_str(), ssid.c_str());
}

void UnsavedChanges::remove(const std::string& ssid) {
    const SettingsLock lock(m_host.settings());
    m_isSent = true;
    if (removeWifiNetwork(nullptr, m_host.iface().c_str(), ssid.c_str()) == 0)
        refuse("remove", ssid);
}

void UnsavedChanges::write() {
    ErrorHandler errors;
    if (m_host.settings().writeNetworkSettings(&errors) != 0)
        return;
    if (const MessageBundle* const refusal = errors.savedError())
        throw Failure(refusal->text());
    throw Failure("another program has removed the network; platwifi networks lists what there is");
}

void UnsavedChanges::save() {
    if (!driver().saveConfiguration(m_host.iface().c_str()))
        throw Failure(NOT_SAVED);
    m_isSent = false;
    m_context.hasSaved = true;
}

// The supplicant then looks for networks, or does not, as before. A process that goes on forgets the changes, too.
void UnsavedChanges::takeBack() {
    const char* const iface = m_host.iface().c_str();
    driver().reloadConfiguration(iface);
    removeWhatOthersSaved();
    if (!m_context.isWholeProcess)
        m_host.settings().refreshAllSettings();
    if (m_wasDisconnected)
        driver().disconnectFromNetwork(iface, NO_ID);
    else
        driver().forceReassociation(iface);
}

// A save by another program has written the new network, too, which the supplicant then reads again.
void UnsavedChanges::removeWhatOthersSaved() {
    const std::string& iface = m_host.iface();
    if (m_added.empty() || !isListed(iface, m_added))
        return;
    m_host.settings().refreshAllSettings();
    if (removeWifiNetwork(nullptr, iface.c_str(), m_added.c_str()) != 0)
        m_context.hasSaved = driver().saveConfiguration(iface.c_str());
}

} // namespace cli
