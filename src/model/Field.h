#pragma once

#include <cstdint>

namespace platwifi {

/// A field of a network. The getters and setters of WifiNetwork, and every table that has a row for a
/// field, name it by this.
enum class Field : unsigned char {
    // Texts.
    SSID,
    BSSID,
    PSK,
    EAP_IDENTITY,
    EAP_ANONYMOUS_IDENTITY,
    EAP_PASSWORD,
    CA_CERTIFICATE,
    CA_CERTIFICATE_DIR,
    CLIENT_CERTIFICATE,
    PRIVATE_KEY_FILE,
    PRIVATE_KEY_PASSWORD,
    PHASE1_STEP,
    PHASE2_STEP,
    CA_CERTIFICATE2,
    CA_CERTIFICATE_DIR2,
    CLIENT_CERTIFICATE2,
    PRIVATE_KEY_FILE2,
    PRIVATE_KEY_PASSWORD2,
    WEP_KEY0,
    WEP_KEY1,
    WEP_KEY2,
    WEP_KEY3,
    IP_ADDRESS, ///< never written back

    // Numbers.
    SSID_BROADCASTED,
    NETWORK_MODE,
    CHANNEL,
    PRIORITY,
    PROTOCOL,
    KEY_MANAGEMENT,
    AUTH_ALG,
    GROUP_CIPHERS,
    PAIRWISE_CIPHERS,
    EAP_MODES,
    WEP_INDEX,
    PMF,
    NETWORK_ID,     ///< never written back
    NETWORK_STATUS, ///< never written back
    STRENGTH,       ///< never written back
};

constexpr unsigned int indexOf(Field field) {
    return static_cast<unsigned int>(field);
}

constexpr unsigned int FIELD_COUNT = indexOf(Field::STRENGTH) + 1;
constexpr unsigned int TEXT_FIELD_COUNT = indexOf(Field::IP_ADDRESS) + 1;

/// How many WEP keys a network has.
constexpr unsigned int WEP_KEY_COUNT = 4;

/// The WEP key in a slot, 0 to 3.
constexpr Field wepKeyField(unsigned int slot) {
    return static_cast<Field>(indexOf(Field::WEP_KEY0) + slot);
}

/// A set of fields: one bit a field.
using FieldSet = std::uint64_t;
static_assert(FIELD_COUNT <= 64, "each field needs a bit of its own");

constexpr FieldSet setOf(Field field) {
    return FieldSet{1} << indexOf(field);
}

template <typename... More>
constexpr FieldSet setOf(Field first, More... more) {
    return setOf(first) | setOf(more...);
}

constexpr bool contains(FieldSet set, Field field) {
    return (set & setOf(field)) != 0;
}

} // namespace platwifi
