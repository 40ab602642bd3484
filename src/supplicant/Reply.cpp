#include "supplicant/Reply.h"

#include <cstring>

namespace platwifi {
namespace {

struct StateName {
    const char* text;
    WpaState state;
};

// The first name that is found anywhere in the line decides, in this order.
constexpr StateName STATE_NAMES[] = {
    {"INACTIVE", WPA_STATE_IDLE},
    {"SCANNING", WPA_STATE_SCANNING},
    {"COMPLETED", WPA_STATE_COMPLETED},
    {"4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE},
    {"GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE},
    {"ASSOCIATING", WPA_STATE_ASSOCIATING},
    {"ASSOCIATED", WPA_STATE_ASSOCIATED},
    {"DISCONNECTED", WPA_STATE_DISCONNECTED},
};

} // namespace

bool isAccepted(const char* line) {
    return line[0] != '\0' && !std::strstr(line, "FAIL") && !std::strstr(line, "Invalid");
}

void stripQuotes(char* text) {
    char* const last = std::strrchr(text, '"');
    if (!last)
        return;
    *last = '\0';
    std::memmove(text, text + 1, std::strlen(text)); // includes the NUL
}

WpaState stateIn(const char* line) {
    for (const StateName& name : STATE_NAMES) {
        if (std::strstr(line, name.text))
            return name.state;
    }
    return WPA_STATE_UNKNOWN;
}

WpaState stateOf(const char* const lines[], unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) {
        if (lines[i] && std::strstr(lines[i], "wpa_state="))
            return stateIn(lines[i]);
    }
    return WPA_STATE_UNKNOWN;
}

} // namespace platwifi
