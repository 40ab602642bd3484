#include "support/WordTable.h"

using platwifi::Field;

namespace test {

// The supplicant has numbers for its modes. Its scan_ssid is the opposite of the broadcast flag.
// clang-format off
const std::map<Field, WordRows>& fieldWords() {
    static const std::map<Field, WordRows> words = {
        {Field::SSID_BROADCASTED, {{1, "0", "yes"}, {0, "1", "no"}}},
        {Field::NETWORK_MODE, {{0, "0", "MANAGED"}, {1, "1", "ADHOC"}}},
        {Field::PROTOCOL, {{0x1, "WPA"}, {0x2, "RSN"}}},
        {Field::KEY_MANAGEMENT, {
            {0x1, "NONE"}, {0x4, "WPA-EAP", "WPA_EAP"}, {0x2, "WPA-PSK", "WPA_PSK"},
            {0x10, "WPA-NONE", "WPA_NONE"}, {0x8, "IEEE8021X"},
        }},
        {Field::AUTH_ALG, {{1, "OPEN"}, {2, "SHARED"}, {3, "LEAP"}}},
        {Field::PAIRWISE_CIPHERS, {{0x2, "TKIP"}, {0x4, "CCMP"}, {0x1, "NONE"}}},
        {Field::GROUP_CIPHERS, {{0x2, "TKIP"}, {0x4, "CCMP"}, {0x8, "WEP104"}, {0x10, "WEP40"}}},
        {Field::EAP_MODES, {
            {0x1, "TLS"}, {0x2, "PEAP"}, {0x4, "TTLS"}, {0x8, "MD5"}, {0x10, "LEAP"},
            {0x20, "MSCHAPV2"}, {0x40, "GTC"}, {0x80, "OTP"}, {0x100, "PSK"}, {0x400, "FAST"},
            {0x200, "PAX"},
        }},
    };
    return words;
}

const std::map<Field, WordRows>& todaysWords() {
    static const std::map<Field, WordRows> words = {
        {Field::KEY_MANAGEMENT, {
            {0x20, "SAE"}, {0x40, "OWE"}, {0x80, "WPA-PSK-SHA256"}, {0x100, "WPA-EAP-SHA256"},
            {0x200, "FT-PSK"}, {0x400, "FT-EAP"}, {0x800, "FT-SAE"}, {0x1000, "WPA-EAP-SUITE-B-192"},
        }},
        {Field::PAIRWISE_CIPHERS, {{0x20, "GCMP"}, {0x40, "GCMP-256"}, {0x80, "CCMP-256"}}},
        {Field::GROUP_CIPHERS, {{0x20, "GCMP"}, {0x40, "GCMP-256"}, {0x80, "CCMP-256"}}},
    };
    return words;
}

const WordRows& stateWords() {
    static const WordRows words = {
        {1, "DISCONNECTED"}, {2, "INACTIVE", "IDLE"}, {3, "SCANNING"}, {4, "ASSOCIATING"},
        {5, "ASSOCIATED"}, {6, "4WAY_HANDSHAKE", "4-WAY HANDSHAKE"},
        {7, "GROUP_HANDSHAKE", "GROUP HANDSHAKE"}, {8, "COMPLETED"},
    };
    return words;
}
// clang-format on

const WordRows& wordsOf(Field field) {
    static const WordRows none;
    const auto found = fieldWords().find(field);
    return found == fieldWords().end() ? none : found->second;
}

bool isSet(Field field) {
    constexpr platwifi::FieldSet SETS =
        setOf(Field::PROTOCOL, Field::KEY_MANAGEMENT, Field::PAIRWISE_CIPHERS, Field::GROUP_CIPHERS,
              Field::EAP_MODES);
    return contains(SETS, field);
}

} // namespace test
