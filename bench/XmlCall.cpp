// The call that returns the XML document, and the parts of its work.

#include "BareCommand.h"
#include "Contest.h"
#include "Measurements.h"
#include "Networks.h"
#include "XmlWriters.h"
#include "platform/Crypt.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>

namespace bench {
namespace {

constexpr const char* SECRETS[] = {"psk", "eapPassword", "privateKeyPassword",
                                   "privateKeyPassword2"};

bool isSecret(const std::string& name) {
    return std::find(std::begin(SECRETS), std::end(SECRETS), name) != std::end(SECRETS);
}

int secretsIn(const XmlElement& element) {
    int count = 0;
    for (const auto& [name, value] : element.attributes)
        count += isSecret(name) && !value.empty() ? 1 : 0;
    for (const XmlElement& child : element.children)
        count += secretsIn(child);
    return count;
}

// The library enciphers the text that the supplicant returns in place of a secret.
void encipher(int count) {
    for (int i = 0; i < count; ++i) {
        char* result = nullptr;
        Crypt::encrypt(nullptr, "*", &result);
        const std::unique_ptr<char[]> owner(result);
        if (!result)
            throw std::runtime_error("the library cannot encipher");
    }
}

// The two queries of each call. Every 5 s a call also queries the list.
void askSupplicant() {
    WifiUtil& util = *WifiUtil::getInstance();
    platwifi::ReplyLines status(32);
    if (!util.isWifiEnabled(WLAN) ||
        !util.getCurrentNetworkStatus(WLAN, status.data(), status.capacity(), &status.count))
        throw std::runtime_error("the library cannot ask for the status");
}

// As many children as a call has. The other one of a call lists the processes.
void askTheHostTwice() {
    runBare(HOST_CLIENT, {"-iwlan0", "status"});
    runBare(HOST_CLIENT, {"-iwlan0", "status"});
}

} // namespace

Rows measureXmlCall() {
    const XmlElement root = parse(libraryDocument());
    const int secrets = secretsIn(root);
    const Timings times =
        compete({{[] { libraryDocument(); }},
                 {askTheHostTwice},
                 {askSupplicant},
                 {[secrets] { encipher(secrets); }},
                 {[&root] { benchmark::DoNotOptimize(PLATFORM_WRITER.write(root)); }}},
                {15, 0.05});
    WifiHostSettings::unload();
    WifiUtil::unload();
    const char* const whole = "the whole call for the XML document";
    return {
        timeRow("The whole call for the XML document of 32 networks",
                "two children of the host's client", times[0], times[1],
                "What the call costs beside the two queries that make its data current.",
                "document-host"),
        timeRow("The queries for the supplicant and its status, two children", whole, times[2],
                times[0], "The part of the call that makes its data current."),
        timeRow("Enciphering " + std::to_string(secrets) + " secrets", whole, times[3], times[0],
                "The part of the call that enciphers secrets."),
        timeRow("Writing the document", whole, times[4], times[0],
                "The part that a faster writer could save."),
    };
}

} // namespace bench
