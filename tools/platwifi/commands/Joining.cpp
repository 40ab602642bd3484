#include "commands/Joining.h"

#include "commands/MissingProperties.h"
#include "commands/UnsavedChanges.h"
#include "connection/AccessPoints.h"
#include "connection/Connecting.h"
#include "display/StateLine.h"
#include "edits/PropertyTable.h"
#include "host/Capabilities.h"
#include "host/Ssid.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "values/Nearest.h"
#include "values/Texts.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace cli {
namespace {

using Results = std::vector<ScanResult>;
using Duration = std::chrono::steady_clock::duration;

// The next step where another one than that of the cause is due, because the network was not kept.
struct NextStep {
    Cause cause;
    const char* text;
};

constexpr const char* NOTHING_WAS_CHANGED = "nothing was changed; ";

// clang-format off
constexpr NextStep NEXT_STEPS[] = {
    {Cause::WRONG_KEY, "platwifi join asks for the key again"},
    {Cause::LOGIN_REFUSED, "give eapIdentity and eapPassword again"},
    {Cause::SERVER_NOT_TRUSTED, "give the certificate of its authority, CACertificateFile=PATH"},
    {Cause::CERTIFICATE_FILE, "correct the path"},
    {Cause::NOT_IN_RANGE, "platwifi scan lists what is"},
    {Cause::OTHER_SECURITY, "platwifi scan shows it; give key_mgmt=WORD for it, or none"},
    {Cause::NEEDS_PMF_OR_WPA3, "give key_mgmt=SAE pmf=required, or neither"},
    {Cause::TIMED_OUT, "try again nearer to the access point, or with a longer --timeout"},
};
// clang-format on

std::string nextStep(Cause cause) {
    for (const NextStep& step : NEXT_STEPS) {
        if (step.cause == cause)
            return NOTHING_WAS_CHANGED + std::string(step.text);
    }
    return NOTHING_WAS_CHANGED + std::string(entryOf(cause).step);
}

// Connects to a network that is not saved, or has values that are not saved.
Duration connectToTry(Context& context, Host& host, const std::string& ssid) {
    try {
        return connectAndWait(context, host, ssid);
    } catch (const ConnectionFailure& failure) {
        throw ConnectionFailure({failure.cause, failure.found, nextStep(failure.cause)},
                                failure.ssid, failure.state);
    } catch (Interrupted& end) {
        end.message = "interrupted; nothing was changed";
        throw;
    }
}

Visibility visibilityOf(const Request& request) {
    const bool isHidden =
        request.hidden || std::count(request.assignments.begin(), request.assignments.end(),
                                     "ssidBroadcasted=false") > 0;
    return isHidden ? Visibility::HIDDEN : Visibility::BROADCAST;
}

// The properties that the command line names, with those that its options stand for.
Assignments givenProperties(const Request& request) {
    Assignments given = request.assignments;
    if (!request.eap.empty())
        given.push_back("eap=" + request.eap);
    if (request.hidden && !isGiven(given, "ssidBroadcasted"))
        given.emplace_back("ssidBroadcasted=false");
    return given;
}

// Before anything else is done. Secrets are read later, when it is known that the network needs them.
void requireValid(const Assignments& given, const UserInput& input) {
    Assignments withoutSecrets;
    std::copy_if(given.begin(), given.end(), std::back_inserter(withoutSecrets),
                 [](const std::string& assignment) {
                     const std::size_t sign = assignment.find('=');
                     return sign == std::string::npos || sign == 0 ||
                            !isSecret(propertyOf(assignment.substr(0, sign)));
                 });
    const Edits checked(withoutSecrets, input);
}

std::vector<std::string> namesIn(const Results& results) {
    std::vector<std::string> names;
    for (const ScanResult& result : results) {
        if (!result.ssid.empty()) // else it is hidden
            names.push_back(shownSsid(result.ssid));
    }
    return names;
}

[[noreturn]] void failNotInRange(const std::string& ssid, const Results& all,
                                 Visibility visibility) {
    const std::string near = didYouMean(shownSsid(ssid), namesIn(all));
    const char* const step = visibility == Visibility::HIDDEN
                                 ? "platwifi scan lists what is; see that the name is right"
                                 : "platwifi scan lists what is; --hidden looks for a hidden one";
    throw ConnectionFailure({Cause::NOT_IN_RANGE, entryOf(Cause::NOT_IN_RANGE).found + near, step},
                            ssid, WPA_STATE_UNKNOWN);
}

std::unique_ptr<StateLine> progress(const Context& context, const std::string& beginning) {
    return context.request.json ? nullptr : std::make_unique<StateLine>(context.out, beginning);
}

const ScanResult& strongest(const Results& results) {
    return *std::max_element(
        results.begin(), results.end(),
        [](const ScanResult& one, const ScanResult& other) { return one.signal < other.signal; });
}

/// Adds a network, and connects to it.
class NewNetwork {
public:
    NewNetwork(Context& context, Host& host, std::string ssid, Assignments given)
        : m_context(context), m_host(host), m_ssid(std::move(ssid)),
          m_properties(std::move(given)) {}

    Joined join() {
        completeProperties();
        const Edits edits(m_properties, m_context.input);
        edits.requireKeyFor(edits.numberOf("key_mgmt"));
        requireCapabilities(m_host.iface(), edits.numberOf("key_mgmt"),
                            edits.numberOf("encryption"));
        m_context.interrupt.check();
        UnsavedChanges changes(m_context, m_host);
        changes.add(m_ssid, edits);
        const Duration time = connectToTry(m_context, m_host, m_ssid);
        changes.save();
        return {m_host.iface(), m_ssid, m_security, true, time};
    }

private:
    // A key management that the user names is not compared with what is in range: connecting does that.
    void completeProperties() {
        if (isGiven(m_properties, "key_mgmt"))
            return completeNamed();
        const Security security = lookForSecurity();
        m_security = security.name;
        requireFitting(m_properties, security.credentials, shownSsid(m_ssid), security.name);
        for (const std::string& property : security.properties) {
            if (!isGiven(m_properties, property.substr(0, property.find('='))))
                m_properties.push_back(property);
        }
        complete(security.credentials);
    }

    void completeNamed() {
        const auto named =
            std::find_if(m_properties.begin(), m_properties.end(), [](const std::string& property) {
                return beginsWith(property, "key_mgmt=");
            });
        const Edits keyManagement({*named}, m_context.input);
        complete(credentialsFor(keyManagement.numberOf("key_mgmt")));
    }

    void complete(Credentials credentials) {
        completeCredentials(m_properties, credentials, shownSsid(m_ssid), m_context.input);
    }

    Security lookForSecurity() {
        const auto line = progress(m_context, "Looking for " + shownSsid(m_ssid) + ":");
        const Visibility visibility = visibilityOf(m_context.request);
        const Results all = lookFor(m_context, m_host, m_ssid, visibility);
        const Results found = withSsid(all, m_ssid);
        if (found.empty())
            failNotInRange(m_ssid, all, visibility);
        Security security = securityOfAll(found);
        if (line)
            line->add(security.name + ", " + std::to_string(strongest(found).signal) + " dBm");
        return security;
    }

    Security securityOfAll(const Results& found) {
        std::vector<std::string> flags;
        for (const ScanResult& result : found)
            flags.push_back(result.flags);
        const auto security =
            bestSecurity(flags, capableMethods(m_host.iface()), givenCredentials(m_properties));
        if (security)
            return *security;
        throw ConnectionFailure({Cause::OTHER_SECURITY,
                                 "the access point offers only " + securityOf(found.front().flags) +
                                     ", which the supplicant or the radio cannot do",
                                 "choose another network; platwifi scan lists what is in range"},
                                m_ssid, WPA_STATE_UNKNOWN);
    }

    Context& m_context;
    Host& m_host;
    const std::string m_ssid;
    Assignments m_properties;
    std::string m_security;
};

unsigned int keyManagementOf(Host& host, const std::string& ssid) {
    const platwifi::SettingsLock lock(host.settings());
    const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str());
    return network ? network->getKeyManagement() : 0;
}

// What is given replaces what is saved.
Joined changeAndJoin(Context& context, Host& host, const std::string& ssid,
                     const Assignments& given) {
    const unsigned int saved = keyManagementOf(host, ssid);
    if (!isGiven(given, "key_mgmt") && saved == KEY_MGMT_NONE && isGiven(given, "psk"))
        requireFitting(given, Credentials::NONE, shownSsid(ssid), "open");
    const Edits edits(given, context.input);
    const unsigned int edited = edits.numberOf("key_mgmt");
    edits.requireKeyFor(edited != 0 ? edited : saved);
    requireCapabilities(host.iface(), edited, edits.numberOf("encryption"));
    context.interrupt.check();
    UnsavedChanges changes(context, host);
    changes.change(ssid, edits);
    const Duration time = connectToTry(context, host, ssid);
    changes.save();
    return {host.iface(), ssid, "", true, time};
}

} // namespace

Joined join(Context& context) {
    const Assignments given = givenProperties(context.request);
    requireSsid(context.request.ssid);
    requireValid(given, context.input);
    Host host(context);
    const auto saved = host.findNetwork();
    if (saved && given.empty())
        return {host.iface(), *saved, "", false, connectAndWait(context, host, *saved)};
    return saved ? changeAndJoin(context, host, *saved, given)
                 : NewNetwork(context, host, typedSsid(context.request.ssid), given).join();
}

} // namespace cli
