// Adding, changing and removing networks. All edits of a command go into one save.

#include "client/Listing.h"
#include "commands/Commands.h"
#include "display/Json.h"
#include "edits/Edits.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/WifiTypes.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <iostream>

namespace cli {
namespace {

/// The edits of one command. Undoes them on destruction unless they were saved. Holds the settings lock,
/// so that no reload discards edits that are not saved yet.
class Transaction {
public:
    explicit Transaction(Context& context, Host& host)
        : m_context(context), m_host(host), m_deferred(context.interrupt), m_lock(host.settings()) {
    }

    // The supplicant reads its file again.
    ~Transaction() {
        if (!m_context.hasSaved)
            driver().reloadConfiguration(m_host.iface().c_str());
    }

    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Ctrl-C also ends the client. The save may succeed although a command before it was lost.
    void save() {
        if (saveWifiHostSettings(nullptr) == 0) {
            throw Failure(
                "the supplicant did not save its configuration, and nothing was changed; see "
                "that the file says update_config=1 and can be written: platwifi doctor");
        }
        m_context.hasSaved = true;
        try {
            m_context.interrupt.check();
        } catch (Interrupted& end) {
            end.message = "interrupted while saving; platwifi networks tells what there is now";
            throw;
        }
    }

private:
    Context& m_context;
    Host& m_host;
    const Interrupt::Deferred m_deferred;
    const platwifi::SettingsLock m_lock;
};

void report(const Context& context, const std::string& ssid, const char* done) {
    if (context.request.json)
        printJson(Record{{"ssid", plainSsid(ssid)}, {"done", done}});
    else
        std::cout << shownSsid(ssid) << " is " << done << ".\n";
}

// The supplicant leaves a network without a key out of its file, unless key_mgmt says that it needs none.
void requireSecurity(const Edits& edits) {
    const std::string keyManagement = edits.valueOf("key_mgmt");
    if (keyManagement.empty()) {
        throw WrongUse(
            "a new network needs a key, psk=-, or key_mgmt=NONE for none, or key_mgmt=WPA-EAP "
            "for an enterprise network");
    }
    if (keyManagement == std::to_string(KEY_MGMT_WPA_PSK) && edits.valueOf("psk").empty())
        throw WrongUse("a network with key_mgmt=WPA-PSK needs a key: psk=- reads it from standard "
                       "input");
}

// A key without a key_mgmt means WPA-PSK.
void completeSecurity(Edits& edits) {
    if (edits.valueOf("key_mgmt").empty() && !edits.valueOf("psk").empty())
        edits.add("key_mgmt", std::to_string(KEY_MGMT_WPA_PSK));
    requireSecurity(edits);
}

[[noreturn]] void refuseAddition(const std::string& ssid) {
    throw Failure("the supplicant did not add " + shownSsid(ssid) + "; platwifi doctor tells more");
}

} // namespace

void setProperties(Context& context) {
    const Edits edits(context.request.assignments, context.interrupt);
    Host host(context);
    const std::string ssid = host.network();
    context.interrupt.check();
    {
        Transaction transaction(context, host);
        edits.apply(host.iface(), ssid);
        transaction.save();
    }
    report(context, ssid, "saved");
}

void addNetwork(Context& context) {
    const std::string& ssid = context.request.ssid;
    requireSsid(ssid);
    Edits edits(context.request.assignments, context.interrupt);
    completeSecurity(edits);
    Host host(context);
    if (host.findNetwork())
        throw Failure(shownSsid(ssid) + " is configured already; change it with: platwifi set");
    context.interrupt.check();
    {
        Transaction transaction(context, host);
        if (addWifiNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
            refuseAddition(ssid);
        edits.apply(host.iface(), ssid);
        transaction.save();
    }
    report(context, ssid, "added");
}

void removeNetwork(Context& context) {
    Host host(context);
    const std::string ssid = host.network();
    context.interrupt.check();
    {
        Transaction transaction(context, host);
        if (removeWifiNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
            throw Failure("the supplicant did not remove " + shownSsid(ssid) +
                          "; platwifi doctor tells more");
        transaction.save();
    }
    report(context, ssid, "removed");
}

} // namespace cli
