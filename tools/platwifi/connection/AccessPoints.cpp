#include "connection/AccessPoints.h"

#include "client/ClientReply.h"
#include "client/Listing.h"
#include "client/Question.h"
#include "connection/Connecting.h"
#include "display/Text.h"
#include "events/EventSource.h"
#include "host/Ssid.h"
#include "settings/replies/WholeLines.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace cli {
namespace {

using Kind = Event::Kind;

constexpr int MAX_SCANS = 3;
constexpr int MAX_REQUESTS = 3; // the supplicant refuses one while it scans by itself
constexpr std::chrono::seconds MAX_SCAN_TIME{20};
constexpr std::size_t MOST_RESULTS = 255; // that the driver returns

std::string inHex(const std::string& bytes) {
    constexpr const char* DIGITS = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += {DIGITS[value / 16], DIGITS[value % 16]};
    }
    return text;
}

// The second word of the command `scan`; "" for none. With an SSID the supplicant asks for that alone, unless it
// is asked for the wildcard, too.
std::string argumentFor(const std::string& ssid, Visibility visibility) {
    return visibility == Visibility::HIDDEN ? "ssid " + inHex(ssid) + " wildcard_ssid=1" : "";
}

/// Scans, and waits for the end of each.
class Scanner {
public:
    Scanner(Context& context, Host& host, std::string ssid, Visibility visibility)
        : m_host(host), m_ssid(std::move(ssid)), m_argument(argumentFor(m_ssid, visibility)),
          m_events(host.iface(), context.interrupt) {}

    void scan() {
        for (int request = 0; request < MAX_REQUESTS && !isAccepted(); ++request)
            awaitEnd();
        awaitEnd();
    }

private:
    bool isAccepted() {
        const char* const argument = m_argument.empty() ? nullptr : m_argument.c_str();
        const std::string reply = clientReply(m_host.iface(), "scan", argument);
        if (reply != "OK" && reply != "FAIL-BUSY")
            refuse();
        return reply == "OK";
    }

    // A scan that the driver fails leaves the results of the one before.
    void awaitEnd() {
        const auto deadline = EventSource::Clock::now() + MAX_SCAN_TIME;
        while (const auto event = m_events.next(deadline)) {
            if (event->kind == Kind::SCAN_FINISHED || event->kind == Kind::SCAN_FAILED)
                return;
            if (event->kind == Kind::LOST)
                throw ConnectionFailure({Cause::SUPPLICANT_GONE, "", ""}, m_ssid,
                                        WPA_STATE_UNKNOWN);
        }
    }

    [[noreturn]] void refuse() {
        const std::string status = askSupplicant(m_host.iface(), "status", nullptr);
        if (status.find("wpa_state=INTERFACE_DISABLED") != std::string::npos)
            throw ConnectionFailure({Cause::ADAPTER_BLOCKED, "", ""}, m_ssid, WPA_STATE_UNKNOWN);
        throw Failure(printable(m_host.iface()) + " cannot be scanned; platwifi doctor tells more");
    }

    Host& m_host;
    const std::string m_ssid;
    const std::string m_argument;
    EventSource m_events; // attached before the first request
};

std::vector<ScanResult> results(Host& host) {
    platwifi::Lines lines;
    platwifi::queryScan(driver(), host.iface().c_str(), lines, MOST_RESULTS);
    std::vector<ScanResult> all;
    for (const std::string& line : lines) {
        if (auto result = ScanResult::of(line))
            all.push_back(std::move(*result));
    }
    return all;
}

} // namespace

std::vector<ScanResult> withSsid(const std::vector<ScanResult>& all, const std::string& ssid) {
    std::vector<ScanResult> those;
    std::copy_if(all.begin(), all.end(), std::back_inserter(those),
                 [&](const ScanResult& result) { return isSameSsid(result.ssid, ssid); });
    return those;
}

std::vector<ScanResult> scanOnce(Context& context, Host& host) {
    Scanner(context, host, "", Visibility::BROADCAST).scan();
    return results(host);
}

std::vector<ScanResult> lookFor(Context& context, Host& host, const std::string& ssid,
                                Visibility visibility) {
    Scanner scanner(context, host, ssid, visibility);
    std::vector<ScanResult> all;
    for (int scan = 0; scan < MAX_SCANS && withSsid(all, ssid).empty(); ++scan) {
        scanner.scan();
        all = results(host);
    }
    return all;
}

} // namespace cli
