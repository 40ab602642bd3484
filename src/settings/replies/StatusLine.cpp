#include "settings/replies/StatusLine.h"

#include "Profile.h"

#include <cstring>

namespace platwifi {
namespace {

enum class Place { ANYWHERE, AT_START };

struct StatusKey {
    const char* text;
    StatusKind kind;
    Place place = Place::ANYWHERE;
};

// Each in the order in which its keys are looked for; the first that a line has decides.
// clang-format off
constexpr StatusKey LOAD[] = {
    {"bssid=", StatusKind::OTHER}, // before "ssid=", which is a part of it
    {"ssid=", StatusKind::SSID},
    {"id=", StatusKind::OTHER},
    {"ip_address=", StatusKind::OTHER},
    {"group_cipher=", StatusKind::OTHER},
    {"pairwise_cipher=", StatusKind::OTHER},
    {"key_mgmt=", StatusKind::OTHER},
    {"wpa_state=", StatusKind::STATE},
};

constexpr StatusKey CURRENT_STATUS[] = {
    {"wpa_state=", StatusKind::STATE},
    {"ssid=", StatusKind::SSID},
};

constexpr StatusKey BEGINNINGS[] = {
    {"ssid=", StatusKind::SSID, Place::AT_START},
    {"wpa_state=", StatusKind::STATE, Place::AT_START},
};

constexpr StatusKey CURRENT_NETWORK[] = {
    {"ssid=", StatusKind::SSID, Place::AT_START},
};
// clang-format on

bool has(const char* line, const StatusKey& key) {
    const char* const found = std::strstr(line, key.text);
    return key.place == Place::AT_START ? found == line : found != nullptr;
}

template <typename Keys>
StatusKind kindOf(const char* line, const Keys& keys) {
    for (const StatusKey& key : keys) {
        if (has(line, key))
            return key.kind;
    }
    return StatusKind::OTHER;
}

StatusKind kindOf(const char* line, StatusReader reader) {
    if (rule::STATUS_KEYS_BEGIN_LINES())
        return kindOf(line, BEGINNINGS);
    switch (reader) {
    case StatusReader::LOAD:
        return kindOf(line, LOAD);
    case StatusReader::CURRENT_STATUS:
        return kindOf(line, CURRENT_STATUS);
    case StatusReader::CURRENT_NETWORK:
        return kindOf(line, CURRENT_NETWORK);
    }
    return StatusKind::OTHER;
}

const char* valueIn(const char* line) {
    const char* const equals = std::strchr(line, '=');
    return equals ? equals + 1 : "";
}

} // namespace

StatusLine readStatusLine(const char* line, StatusReader reader) {
    return {kindOf(line, reader), valueIn(line)};
}

} // namespace platwifi
