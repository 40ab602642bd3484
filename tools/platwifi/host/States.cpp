#include "host/States.h"

#include "model/WifiTypes.h"

namespace cli {
namespace {

struct State {
    WpaState number;
    const char* word;
};

constexpr State STATES[] = {
    {WPA_STATE_DISCONNECTED, "DISCONNECTED"},
    {WPA_STATE_IDLE, "INACTIVE"},
    {WPA_STATE_SCANNING, "SCANNING"},
    {WPA_STATE_ASSOCIATING, "ASSOCIATING"},
    {WPA_STATE_ASSOCIATED, "ASSOCIATED"},
    {WPA_STATE_4WAY_HANDSHAKE, "4WAY_HANDSHAKE"},
    {WPA_STATE_GROUP_HANDSHAKE, "GROUP_HANDSHAKE"},
    {WPA_STATE_COMPLETED, "COMPLETED"},
};

} // namespace

const char* wordForState(unsigned int state) {
    for (const State& one : STATES) {
        if (one.number == state)
            return one.word;
    }
    return "UNKNOWN";
}

} // namespace cli
