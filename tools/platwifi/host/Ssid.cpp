#include "host/Ssid.h"

#include "display/Text.h"
#include "settings/replies/PrintedSsid.h"
#include "values/Failure.h"

#include <algorithm>

namespace cli {
namespace {

using platwifi::bytesOfPrinted;
using platwifi::printedSsid;

constexpr std::size_t MAX_BYTES = 32;

bool isHidden(const std::string& ssid) {
    return std::all_of(ssid.begin(), ssid.end(), [](char byte) { return byte == '\0'; });
}

std::size_t shortestOf(const std::vector<std::string>& readings) {
    std::size_t shortest = readings.front().size();
    for (const std::string& reading : readings)
        shortest = std::min(shortest, reading.size());
    return shortest;
}

} // namespace

std::string shownSsid(const std::string& ssid) {
    return isHidden(ssid) ? "(hidden)" : printable(ssid);
}

std::string plainSsid(const std::string& ssid) {
    const bool isText = isUtf8(ssid) && ssid.find('\0') == std::string::npos;
    return isText ? ssid : printable(ssid);
}

// A name such as C:\new is no escape: its bytes would be shown in another way.
std::string typedSsid(const std::string& typed) {
    const std::string bytes = bytesOfPrinted(typed);
    return printable(bytes) == typed ? bytes : typed;
}

std::vector<std::string> readingsOf(const std::string& typed) {
    return {typed, typedSsid(typed), bytesOfPrinted(typed), printedSsid(typed)};
}

bool isSameSsid(const std::string& one, const std::string& other) {
    return one == other || printedSsid(one) == other || one == printedSsid(other);
}

void requireSsid(const std::string& typed) {
    const std::size_t size = shortestOf({typed, typedSsid(typed), bytesOfPrinted(typed)});
    if (size > 0 && size <= MAX_BYTES)
        return;
    throw WrongUse("an SSID has 1 to " + std::to_string(MAX_BYTES) + " bytes, and this one has " +
                   std::to_string(size) + "; platwifi networks and platwifi scan list some");
}

} // namespace cli
