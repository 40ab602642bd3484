#include "connection/RangeSurvey.h"

#include "client/Listing.h"
#include "client/Question.h"
#include "host/ScanResult.h"
#include "host/Ssid.h"
#include "settings/replies/WholeLines.h"
#include "values/Texts.h"

namespace cli {
namespace {

constexpr std::size_t MOST_LINES = 255; // that the driver returns

// The information elements of an access point, in hexadecimal; "" if the supplicant does not report them.
std::string elementsOf(const std::string& iface, const std::string& bssid) {
    return lineValue("ie", askSupplicant(iface, "bss", bssid.c_str()));
}

AccessPointSecurity surveyed(const std::string& iface, const ScanResult& result) {
    auto security = AccessPointSecurity::of(result.flags);
    security.requiresProtection = requiresProtection(elementsOf(iface, result.bssid));
    return security;
}

} // namespace

std::optional<std::vector<AccessPointSecurity>> accessPointsOf(const std::string& iface,
                                                               const std::string& ssid) {
    platwifi::Lines lines;
    if (!platwifi::queryScan(driver(), iface.c_str(), lines, MOST_LINES))
        return std::nullopt;
    std::vector<AccessPointSecurity> accessPoints;
    for (const std::string& line : lines) {
        const auto result = ScanResult::of(line);
        if (result && isSameSsid(result->ssid, ssid))
            accessPoints.push_back(surveyed(iface, *result));
    }
    return accessPoints;
}

} // namespace cli
