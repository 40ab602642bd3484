// Adding, changing and removing networks. All edits of a command go into one save.

#include "client/Listing.h"
#include "commands/Commands.h"
#include "commands/UnsavedChanges.h"
#include "display/Json.h"
#include "edits/Edits.h"
#include "host/Capabilities.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"
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
        ErrorHandler errors;
        if (saveWifiHostSettings(&errors) == 0) {
            if (const MessageBundle* const refusal = errors.savedError())
                throw Failure(refusal->text());
            throw Failure(NOT_SAVED);
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
    const Cancellation::Deferred m_deferred;
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
    const unsigned int methods = edits.numberOf("key_mgmt");
    if (methods == 0) {
        throw WrongUse(
            "a new network needs a key, psk=-, or key_mgmt=NONE for none, or key_mgmt=WPA-EAP "
            "for an enterprise network");
    }
    constexpr unsigned int KEY_METHODS = platwifi::PSK_METHODS | platwifi::SAE_METHODS;
    const bool needsKey = (methods & KEY_METHODS) != 0;
    if (needsKey && edits.valueOf("psk").empty()) {
        throw WrongUse("a network with key_mgmt=" +
                       platwifi::wordsIn(methods, platwifi::KEY_MANAGEMENT_WORDS) +
                       " needs a key: psk=- reads it from standard input");
    }
    edits.requireKeyFor(methods);
}

// A key without a key_mgmt means WPA-PSK.
void completeSecurity(Edits& edits) {
    if (edits.valueOf("key_mgmt").empty() && !edits.valueOf("psk").empty())
        edits.add("key_mgmt", std::to_string(KEY_MGMT_WPA_PSK));
    requireSecurity(edits);
}

// That of the edits, or else of the network.
unsigned int keyManagementAfter(const Edits& edits, Host& host, const std::string& ssid) {
    const platwifi::SettingsLock lock(host.settings());
    const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str());
    const unsigned int edited = edits.numberOf("key_mgmt");
    return edited != 0 || !network ? edited : network->getKeyManagement();
}

[[noreturn]] void refuseAddition(const std::string& ssid) {
    throw Failure("the supplicant did not add " + shownSsid(ssid) + "; platwifi doctor tells more");
}

} // namespace

void setProperties(Context& context) {
    const Edits edits(context.request.assignments, context.input);
    Host host(context);
    const std::string ssid = host.network();
    edits.requireKeyFor(keyManagementAfter(edits, host, ssid));
    requireCapabilities(host.iface(), edits.numberOf("key_mgmt"), edits.numberOf("encryption"));
    context.interrupt.check();
    {
        Transaction transaction(context, host);
        edits.apply(host.iface(), ssid);
        transaction.save();
    }
    report(context, ssid, "saved");
}

void addNetwork(Context& context) {
    const std::string ssid = typedSsid(context.request.ssid);
    requireSsid(ssid);
    Edits edits(context.request.assignments, context.input);
    completeSecurity(edits);
    Host host(context);
    if (host.findNetwork())
        throw Failure(shownSsid(ssid) + " is configured already; change it with: platwifi set");
    requireCapabilities(host.iface(), edits.numberOf("key_mgmt"), edits.numberOf("encryption"));
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
