#pragma once

// The two profiles of the library, and the rules in which they differ.
//
// `device` keeps the rules of the device that the service was written for: programs there rely on them. It is
// the default of the natives and of the flat functions. `modern` has the rules for the networks and supplicants
// of today. A process runs under one of them.

namespace platwifi {

enum class Profile : int { DEVICE, MODERN };

/// The profile of this process: the one that was chosen, else the one that PLATWIFI_PROFILE names, else
/// `device`. A value of PLATWIFI_PROFILE that names none is reported once on standard error. Any thread may
/// call it.
Profile profile() noexcept;

/// Chooses the profile by its name. After fixProfile() only the one in use can be chosen.
/// @param name  "device" or "modern"
/// @return whether the process runs under this profile; false also for null and for any other name
bool chooseProfile(const char* name) noexcept;

/// Makes the choice final: the state in memory was made by the rules of one profile.
void fixProfile() noexcept;

/// Sets the profile, also after fixProfile(). The caller has made sure that no settings are loaded.
void setProfile(Profile profile) noexcept;

/// One rule: what each profile does. A call gives what the profile of this process does.
template <typename Value>
struct ProfileRule {
    Value device;
    Value modern;

    Value operator()() const noexcept { return profile() == Profile::MODERN ? modern : device; }
};

using Switch = ProfileRule<bool>;
using Limit = ProfileRule<unsigned char>;
using Text = ProfileRule<const char*>;

// One row a rule. docs/behaviour.md has the same table for users.
// clang-format off
namespace rule {

// Reading.
constexpr Switch EMPTY_COLUMNS_COUNT{false, true};     // else a network without an SSID takes over another's columns
constexpr Limit MOST_ADAPTERS{2, 16};
constexpr Limit MOST_NETWORKS{32, 255};                // and lines of a scan; 255 is the most that the driver returns
constexpr Switch LONG_LISTS_ARE_CONTINUED{false, true};// else networks behind the first 4096 bytes are missing
constexpr Switch SSIDS_ARE_BYTES{false, true};         // else a name outside of ASCII cannot be typed
constexpr Switch STATUS_KEYS_BEGIN_LINES{false, true}; // else an SSID that holds a key hides its line
constexpr Switch SCAN_MATCHES_BY_SSID{false, true};    // else "home" gets the signal of "home-guest"
constexpr Switch REFRESH_IS_EDIT{true, false};         // else a save after a refresh pins the access point
constexpr Switch SIGNAL_IS_IN_DBM{false, true};        // else every signal is 100 %
constexpr Switch ALL_CHANNELS_ARE_KNOWN{false, true};  // else every channel of 5 GHz is 6
constexpr Switch KILLED_CLIENT_FAILS_LOAD{false, true};// else a supplicant that hangs costs 7 s a value
constexpr Switch ONLY_USABLE_FIELDS_ARE_READ{false, true}; // else a load asks twice as much; see NetworkKeys.cpp
constexpr Switch P2P_DEVICES_ARE_SKIPPED{false, true}; // they cannot connect to an access point

// Security.
constexpr Switch TODAYS_SECURITY_IS_KNOWN{false, true};// SAE, OWE, FT, Suite B, GCMP, management frame protection
constexpr Switch SETS_ARE_WRITTEN_WHOLE{false, true};  // else one of several ciphers or methods is kept

// Writing.
constexpr Switch UNSET_TEXTS_ARE_UNSET{false, true};   // else a cleared CA certificate is the file ""
constexpr Text INNER_KEY_PASSWORD{"private_key_passwd2", "private_key2_passwd"}; // the supplicant knows the latter
constexpr Switch REFUSED_FIELD_FAILS_SAVE{false, true};// else a refused edit is lost without a sign
constexpr Switch OTHERS_STAY_ENABLED{false, true};     // else a connection disables all other networks for good
constexpr Switch IDS_ARE_ALWAYS_CONFIRMED{false, true};// one list_networks after each save
constexpr Limit LONGEST_INTERFACE{13, 15};             // the system allows 15: wlx and 12 digits

// Processes.
constexpr Switch RESULT_FILES_HAVE_NAMES{true, false}; // in a folder where every user may write
constexpr Switch EVERY_PROCESS_RELOADS{false, true};   // else one of several signals may be missed

} // namespace rule
// clang-format on

} // namespace platwifi
