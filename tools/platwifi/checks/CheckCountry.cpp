// Whether the rules of a country, or those of the whole world, hide access points at 5 GHz.

#include "checks/CheckFunctions.h"
#include "client/ClientReply.h"
#include "client/ControlSocket.h"

#include <algorithm>
#include <sstream>

namespace cli {
namespace {

enum class Band {
    OPEN,       ///< on some channel the adapter may send first
    RESTRICTED, ///< on each channel the adapter must hear an access point first
    UNKNOWN ///< not listed: the adapter has no such band, or the client does not know the command
};

// Such as " 36 = 5180 MHz (NO_IR)"; NO_IR: no initiating radiation.
bool isAt5GHz(const std::string& line) {
    const auto sign = line.find("= 5");
    return sign != std::string::npos && line.find(" MHz") == sign + std::string("= 5180").size();
}

Band bandIn(const std::string& channels) {
    Band band = Band::UNKNOWN;
    std::istringstream lines(channels);
    for (std::string line; std::getline(lines, line);) {
        if (!isAt5GHz(line))
            continue;
        if (line.find("(NO_IR)") == std::string::npos)
            return Band::OPEN;
        band = Band::RESTRICTED;
    }
    return band;
}

// Two letters, or "" for none and for "00", the whole world. A client may print the time of day first.
std::string countryIn(const std::string& reply) {
    const std::string last = reply.substr(reply.size() - std::min<std::size_t>(2, reply.size()));
    const bool isCountry = last.size() == 2 && last != "00" &&
                           reply.find("FAIL") == std::string::npos &&
                           reply.find("UNKNOWN") == std::string::npos;
    return isCountry ? last : "";
}

} // namespace

Finding checkCountry(const std::string& iface) {
    const std::string asked = interfaceFor(iface);
    const std::string country = countryIn(clientReply(asked, "get", "country"));
    const Band band = bandIn(clientReply(asked, "get_capability", "freq"));
    if (country.empty() && band != Band::OPEN) {
        return note(
            "is not set: by the rules for the whole world (00), access points at 5 and 6 GHz "
            "may stay hidden",
            "put country= and the code of your country, such as country=DE, into the "
            "supplicant's configuration, then restart it");
    }
    if (band == Band::RESTRICTED) {
        return note(
            "is " + country + ", but the system still restricts every channel at 5 GHz",
            "see iw reg get; install the rules of the countries (on Debian: apt-get install "
            "wireless-regdb), then restart the system");
    }
    return good(country.empty() ? "is not set, but 5 GHz is open" : "is " + country);
}

} // namespace cli
