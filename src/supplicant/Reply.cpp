#include "supplicant/Reply.h"

#include "model/Vocabulary.h"

#include <cstring>

namespace platwifi {
namespace {

// The order in which states are looked for anywhere in a line: where it names several, the first counts.
// clang-format off
constexpr auto STATE_SEARCH = inOrder(STATE_WORDS, {
    WPA_STATE_IDLE,
    WPA_STATE_SCANNING,
    WPA_STATE_COMPLETED,
    WPA_STATE_4WAY_HANDSHAKE,
    WPA_STATE_GROUP_HANDSHAKE,
    WPA_STATE_ASSOCIATING,
    WPA_STATE_ASSOCIATED,
    WPA_STATE_DISCONNECTED,
});
// clang-format on

} // namespace

bool isAccepted(const char* line) {
    return line[0] != '\0' && !std::strstr(line, "FAIL") && !std::strstr(line, "Invalid");
}

void stripQuotes(char* text) {
    char* const last = std::strrchr(text, '"');
    if (!last)
        return;
    *last = '\0';
    std::memmove(text, text + 1, std::strlen(text)); // with the NUL
}

WpaState stateIn(const char* line) {
    return static_cast<WpaState>(firstIn(line, STATE_SEARCH));
}

WpaState stateOf(const char* const lines[], unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) {
        if (lines[i] && std::strstr(lines[i], "wpa_state="))
            return stateIn(lines[i]);
    }
    return WPA_STATE_UNKNOWN;
}

} // namespace platwifi
