#pragma once

#include "Profile.h"
#include "model/WifiTypes.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string>

// The words for the numbers of WifiTypes.h. Each word stands beside its number once: loading, saving, the
// dump, the driver and the command line read these tables. All of it is in this header because the command
// line links only what the library exports.

namespace platwifi {

/// A number and the words for it.
struct Word {
    unsigned int number = 0;
    const char* text = nullptr;  ///< as the supplicant spells it
    const char* dumpText = text; ///< as the dump spells it
};

/// A table of words, in its order. It refers to the table, which has to live longer.
class Words {
public:
    constexpr Words() noexcept = default;

    template <std::size_t SIZE>
    constexpr Words(const Word (&table)[SIZE]) noexcept : m_begin(table), m_end(table + SIZE) {}

    template <std::size_t SIZE>
    constexpr Words(const std::array<Word, SIZE>& table) noexcept
        : m_begin(table.data()), m_end(table.data() + SIZE) {}

    /// The first words of the table.
    constexpr Words first(std::size_t count) const noexcept {
        Words words = *this;
        words.m_end = m_begin + count;
        return words;
    }

    constexpr const Word* begin() const noexcept { return m_begin; }
    constexpr const Word* end() const noexcept { return m_end; }
    constexpr bool empty() const noexcept { return m_begin == m_end; }

private:
    const Word* m_begin = nullptr;
    const Word* m_end = nullptr;
};

// The command line lists words in the order of these tables. Where another reader needs another order, that
// order stands beside its code, as numbers: see inOrder().

// clang-format off

inline constexpr Word KEY_MANAGEMENT_WORDS[] = {
    {KEY_MGMT_NONE, "NONE"},
    {KEY_MGMT_WPA_PSK, "WPA-PSK", "WPA_PSK"},
    {KEY_MGMT_WPA_EAP, "WPA-EAP", "WPA_EAP"},
    {KEY_MGMT_IEEE8021X, "IEEE8021X"},
    {KEY_MGMT_WPA_NONE, "WPA-NONE", "WPA_NONE"},
    {KEY_MGMT_SAE, "SAE"},
    {KEY_MGMT_OWE, "OWE"},
    {KEY_MGMT_WPA_PSK_SHA256, "WPA-PSK-SHA256"},
    {KEY_MGMT_WPA_EAP_SHA256, "WPA-EAP-SHA256"},
    {KEY_MGMT_FT_PSK, "FT-PSK"},
    {KEY_MGMT_FT_EAP, "FT-EAP"},
    {KEY_MGMT_FT_SAE, "FT-SAE"},
    {KEY_MGMT_SUITE_B_192, "WPA-EAP-SUITE-B-192"},
};

// The kinds of key management with a key: the password of SAE may have any length.
inline constexpr unsigned int SAE_METHODS = KEY_MGMT_SAE | KEY_MGMT_FT_SAE;
inline constexpr unsigned int PSK_METHODS =
    KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_PSK_SHA256 | KEY_MGMT_FT_PSK;

inline constexpr Word PROTOCOL_WORDS[] = {
    {PROTOCOL_WPA, "WPA"},
    {PROTOCOL_RSN, "RSN"},
};

// AUTH_ALG_AUTO has no word: it is what the supplicant does when no algorithm is set.
inline constexpr Word AUTH_ALG_WORDS[] = {
    {AUTH_ALG_OPEN, "OPEN"},
    {AUTH_ALG_SHARED, "SHARED"},
    {AUTH_ALG_LEAP, "LEAP"},
};

inline constexpr Word PAIRWISE_WORDS[] = {
    {PAIRWISE_CCMP, "CCMP"},
    {PAIRWISE_TKIP, "TKIP"},
    {PAIRWISE_NONE, "NONE"},
    {PAIRWISE_GCMP, "GCMP"},
    {PAIRWISE_GCMP_256, "GCMP-256"},
    {PAIRWISE_CCMP_256, "CCMP-256"},
};

inline constexpr Word GROUP_WORDS[] = {
    {GROUP_CCMP, "CCMP"},
    {GROUP_TKIP, "TKIP"},
    {GROUP_WEP104, "WEP104"},
    {GROUP_WEP40, "WEP40"},
    {GROUP_GCMP, "GCMP"},
    {GROUP_GCMP_256, "GCMP-256"},
    {GROUP_CCMP_256, "CCMP-256"},
};

// The words that the profile `device` knows stand first in their tables.
inline constexpr Words DEVICE_KEY_MANAGEMENT_WORDS = Words(KEY_MANAGEMENT_WORDS).first(5);
inline constexpr Words DEVICE_PAIRWISE_WORDS = Words(PAIRWISE_WORDS).first(3);
inline constexpr Words DEVICE_GROUP_WORDS = Words(GROUP_WORDS).first(4);

inline constexpr Word EAP_WORDS[] = {
    {EAP_TLS, "TLS"},
    {EAP_PEAP, "PEAP"},
    {EAP_TTLS, "TTLS"},
    {EAP_MD5, "MD5"},
    {EAP_LEAP, "LEAP"},
    {EAP_GTC, "GTC"},
    {EAP_MSCHAPV2, "MSCHAPV2"},
    {EAP_OTP, "OTP"},
    {EAP_PSK, "PSK"},
    {EAP_FAST, "FAST"},
    {EAP_PAX, "PAX"},
};

// These words are the library's own: the supplicant has numbers for these.
inline constexpr Word PMF_WORDS[] = {
    {PMF_DISABLED, "disabled"},
    {PMF_OPTIONAL, "optional"},
    {PMF_REQUIRED, "required"},
    {PMF_DEFAULT, "default"},
};

inline constexpr Word MODE_WORDS[] = {
    {NETWORK_MODE_MANAGED, "MANAGED"},
    {NETWORK_MODE_ADHOC, "ADHOC"},
};

inline constexpr Word STATE_WORDS[] = {
    {WPA_STATE_DISCONNECTED, "DISCONNECTED"},
    {WPA_STATE_IDLE, "INACTIVE", "IDLE"},
    {WPA_STATE_SCANNING, "SCANNING"},
    {WPA_STATE_ASSOCIATING, "ASSOCIATING"},
    {WPA_STATE_ASSOCIATED, "ASSOCIATED"},
    {WPA_STATE_4WAY_HANDSHAKE, "4WAY_HANDSHAKE", "4-WAY HANDSHAKE"},
    {WPA_STATE_GROUP_HANDSHAKE, "GROUP_HANDSHAKE", "GROUP HANDSHAKE"},
    {WPA_STATE_COMPLETED, "COMPLETED"},
};

// clang-format on

/// Shown where a number has no word.
inline constexpr const char* UNKNOWN_WORD = "UNKNOWN";

/// The row of a number; null where there is none. A set of several flags has none.
constexpr const Word* wordFor(Words words, unsigned int number) noexcept {
    for (const Word& word : words) {
        if (word.number == number)
            return &word;
    }
    return nullptr;
}

/// The same row.
/// @throws std::out_of_range where there is none; in a constant expression that does not compile
constexpr const Word& rowOf(Words words, unsigned int number) {
    const Word* const word = wordFor(words, number);
    return word ? *word : throw std::out_of_range("no word has this number");
}

/// The supplicant's word for a number, or `otherwise`.
constexpr const char* textFor(Words words, unsigned int number, const char* otherwise) noexcept {
    const Word* const word = wordFor(words, number);
    return word ? word->text : otherwise;
}

/// The supplicant's word for a WpaState; UNKNOWN_WORD for any other number.
constexpr const char* stateText(unsigned int state) noexcept {
    return textFor(STATE_WORDS, state, UNKNOWN_WORD);
}

/// The words of a set, separated by blanks.
inline std::string wordsIn(unsigned int set, Words words) {
    std::string text;
    for (const Word& word : words) {
        if ((set & word.number) != 0)
            text += (text.empty() ? "" : " ") + std::string(word.text);
    }
    return text;
}

/// The rows of a table that have these numbers, in this order.
template <std::size_t SIZE, std::size_t COUNT>
constexpr std::array<Word, COUNT> inOrder(const Word (&table)[SIZE],
                                          const unsigned int (&order)[COUNT]) {
    std::array<Word, COUNT> words{};
    for (std::size_t i = 0; i < COUNT; ++i)
        words[i] = rowOf(table, order[i]);
    return words;
}

/// The number of the first word of the table, in its order, that stands anywhere in `value`; 0 for none.
inline unsigned int firstIn(const char* value, Words words) noexcept {
    for (const Word& word : words) {
        if (std::strstr(value, word.text))
            return word.number;
    }
    return 0;
}

/// The numbers of all words of the table that the value holds, as a set. Blanks separate words.
inline unsigned int wholeWordsIn(const char* value, Words words) noexcept {
    constexpr const char* BLANKS = " \t";
    unsigned int set = 0;
    while (*(value += std::strspn(value, BLANKS)) != '\0') {
        const std::size_t length = std::strcspn(value, BLANKS);
        for (const Word& word : words) {
            if (std::strlen(word.text) == length && std::memcmp(word.text, value, length) == 0)
                set |= word.number;
        }
        value += length;
    }
    return set;
}

/// The numbers of all words of the table that stand anywhere in `value`, as a set.
inline unsigned int allIn(const char* value, Words words) noexcept {
    unsigned int set = 0;
    for (const Word& word : words) {
        if (std::strstr(value, word.text))
            set |= word.number;
    }
    return set;
}

// The words that the profile of this process knows.

inline Words knownKeyManagement() noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? KEY_MANAGEMENT_WORDS : DEVICE_KEY_MANAGEMENT_WORDS;
}

inline Words knownPairwise() noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? PAIRWISE_WORDS : DEVICE_PAIRWISE_WORDS;
}

inline Words knownGroup() noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? GROUP_WORDS : DEVICE_GROUP_WORDS;
}

} // namespace platwifi
