#include "settings/replies/StatusLine.h"

#include <cstring>

namespace platwifi {
namespace {

struct StatusKey {
    const char* text;
    StatusLine kind;
};

// In the order in which they are looked for anywhere in the line; some are part of others.
// clang-format off
constexpr StatusKey STATUS_KEYS[] = {
    {"bssid=", StatusLine::OTHER},
    {"ssid=", StatusLine::SSID},
    {"id=", StatusLine::OTHER},
    {"ip_address=", StatusLine::OTHER},
    {"group_cipher=", StatusLine::OTHER},
    {"pairwise_cipher=", StatusLine::OTHER},
    {"key_mgmt=", StatusLine::OTHER},
    {"wpa_state=", StatusLine::STATE},
};
// clang-format on

} // namespace

StatusLine kindOf(const char* line) {
    for (const StatusKey& key : STATUS_KEYS) {
        if (std::strstr(line, key.text))
            return key.kind;
    }
    return StatusLine::OTHER;
}

const char* statusValue(const char* line) {
    const char* const equals = std::strchr(line, '=');
    return equals ? equals + 1 : "";
}

} // namespace platwifi
