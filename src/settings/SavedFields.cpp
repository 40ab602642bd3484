#include "settings/SavedFields.h"

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/NetworkFunctions.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"
#include "supplicant/ValueQuoting.h"
#include "supplicant/WifiUtil.h"

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace platwifi {
namespace {

constexpr const char* ANY_BSSID = "any";
constexpr const char* EMPTY = "\"\""; // the supplicant's notation of an empty text
constexpr const char* MASK = "*";     // what the supplicant answers in place of a secret

// What a save does with a dirty field.
enum class Action {
    SEND,
    UNSET,    // the supplicant's default holds
    SKIP,     // the supplicant keeps its value
    POSTPONE, // there is nothing to write yet; the field stays dirty
};

struct Value {
    Action action;
    std::string text = {};
};

Value send(std::string text) {
    return {Action::SEND, std::move(text)};
}

Value skip() {
    return {Action::SKIP};
}

Value postpone() {
    return {Action::POSTPONE};
}

Value unset() {
    return rule::UNSET_TEXTS_ARE_UNSET() ? Value{Action::UNSET} : send(EMPTY);
}

// How a field's value is written. Each function takes the field of its row.

Value required(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return text ? send(text) : postpone();
}

bool isSet(const char* text) {
    return text && (*text != '\0' || !rule::UNSET_TEXTS_ARE_UNSET());
}

Value orEmpty(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return isSet(text) ? send(text) : unset();
}

// A secret that was loaded is the mask; it was not changed. quirk: SAVE-9
Value masked(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return text && std::strcmp(text, MASK) == 0 ? skip() : orEmpty(fields, field);
}

// The supplicant cannot forget a key: it stays, without a use, where the key management needs none.
Value key(const NetworkFields& fields, Field field) {
    const bool isCleared = !isSet(fields.text(field));
    return isCleared && rule::UNSET_TEXTS_ARE_UNSET() ? skip() : masked(fields, field);
}

// Signed, as the supplicant's numbers are: those above INT_MAX become negative. quirk: SAVE-11
Value decimal(const NetworkFields& fields, Field field) {
    return send(std::to_string(static_cast<int>(fields.number(field))));
}

// Where sets are not written whole, a set is compared as a whole: there is no word for several flags, so the
// supplicant keeps its value. quirk: SAVE-5
[[gnu::noinline]] Value savedWords(unsigned int number, Words words) {
    if (rule::SETS_ARE_WRITTEN_WHOLE()) {
        std::string text = wordsIn(number, words);
        return text.empty() ? skip() : send(std::move(text));
    }
    if (const Word* const word = wordFor(words, number))
        return send(word->text);
    return number == 0 ? postpone() : skip();
}

template <Words (*WORDS)()>
Value words(const NetworkFields& fields, Field field) {
    return savedWords(fields.number(field), WORDS());
}

Words eapMethods() {
    return EAP_WORDS;
}

Words protocols() {
    return PROTOCOL_WORDS;
}

// One value, not a set.
Value algorithm(const NetworkFields& fields, Field field) {
    const unsigned int number = fields.number(field);
    if (const Word* const word = wordFor(AUTH_ALG_WORDS, number))
        return send(word->text);
    return number == 0 ? postpone() : skip();
}

bool isAnyBssid(const char* bssid) {
    return !bssid || std::strcmp(bssid, ANY_BSSID) == 0;
}

Value bssid(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    if (!rule::UNSET_TEXTS_ARE_UNSET())
        return send(isAnyBssid(text) ? NO_BSSID : text);
    return send(isAnyBssid(text) || std::strcmp(text, NO_BSSID) == 0 ? ANY_BSSID : text);
}

Value pmf(const NetworkFields& fields, Field field) {
    const unsigned int number = fields.number(field);
    const bool isSent = number < PMF_DEFAULT && rule::TODAYS_SECURITY_IS_KNOWN();
    return isSent ? send(std::to_string(number)) : skip();
}

// scan_ssid is the opposite of the broadcast flag: a network that hides its SSID answers only to a probe
// request that names it.
Value scanSsid(const NetworkFields& fields, Field field) {
    return send(fields.number(field) != 0 ? "0" : "1");
}

struct SavedField {
    Field field;
    const char* key;
    Value (*value)(const NetworkFields&, Field);
    const char* command = nullptr; // of the client, sent with the value after the field itself
};

// In the order in which they are written.
constexpr SavedField SAVED_FIELDS[] = {
    {Field::SSID, "ssid", required},
    {Field::BSSID, "bssid", bssid, "bssid"},
    {Field::SSID_BROADCASTED, "scan_ssid", scanSsid},
    {Field::KEY_MANAGEMENT, "key_mgmt", words<knownKeyManagement>},
    {Field::PRIORITY, "priority", decimal},
    {Field::NETWORK_MODE, "mode", decimal},
    {Field::AUTH_ALG, "auth_alg", algorithm},
    {Field::PAIRWISE_CIPHERS, "pairwise", words<knownPairwise>},
    {Field::GROUP_CIPHERS, "group", words<knownGroup>},
    {Field::EAP_MODES, "eap", words<eapMethods>},
    {Field::PROTOCOL, "proto", words<protocols>},
    {Field::WEP_INDEX, "wep_tx_keyidx", decimal},
    {Field::WEP_KEY0, "wep_key0", key},
    {Field::WEP_KEY1, "wep_key1", key},
    {Field::WEP_KEY2, "wep_key2", key},
    {Field::WEP_KEY3, "wep_key3", key},
    {Field::EAP_IDENTITY, "identity", orEmpty},
    {Field::EAP_ANONYMOUS_IDENTITY, "anonymous_identity", orEmpty},
    {Field::EAP_PASSWORD, "password", masked},
    {Field::PSK, "psk", key},
    {Field::PMF, "ieee80211w", pmf},
    {Field::CA_CERTIFICATE, "ca_cert", orEmpty},
    {Field::CA_CERTIFICATE_DIR, "ca_path", orEmpty},
    {Field::CLIENT_CERTIFICATE, "client_cert", orEmpty},
    {Field::PRIVATE_KEY_FILE, "private_key", orEmpty},
    {Field::PRIVATE_KEY_PASSWORD, "private_key_passwd", masked},
    {Field::PHASE1_STEP, "phase1", orEmpty},
    {Field::PHASE2_STEP, "phase2", orEmpty},
    {Field::CA_CERTIFICATE2, "ca_cert2", orEmpty},
    {Field::CA_CERTIFICATE_DIR2, "ca_path2", orEmpty},
    {Field::CLIENT_CERTIFICATE2, "client_cert2", orEmpty},
    {Field::PRIVATE_KEY_FILE2, "private_key2", orEmpty},
    {Field::PRIVATE_KEY_PASSWORD2, "private_key_passwd2", masked}, // quirk: LOAD-15
};

// The supplicant does not check the length of an SAE password, which is a field of its own.
constexpr const char* SAE_PASSWORD = "sae_password";

using Keys = std::vector<const char*>;

// The supplicant's names of a field.
Keys keysOf(const SavedField& row, const NetworkFields& fields) {
    const unsigned int methods = fields.number(Field::KEY_MANAGEMENT);
    const bool hasSae = rule::TODAYS_SECURITY_IS_KNOWN() && (methods & SAE_METHODS) != 0;
    if (row.field == Field::PSK && hasSae)
        return (methods & PSK_METHODS) != 0 ? Keys{SAE_PASSWORD, row.key} : Keys{SAE_PASSWORD};
    return {row.field == Field::PRIVATE_KEY_PASSWORD2 ? rule::INNER_KEY_PASSWORD() : row.key};
}

// SAE and OWE need protected management frames: required where no other method is allowed. What was set for
// this network stays.
void protectManagementFrames(NetworkFields& fields) {
    const unsigned int methods = fields.number(Field::KEY_MANAGEMENT);
    const unsigned int protecting = methods & (SAE_METHODS | KEY_MGMT_OWE | KEY_MGMT_SUITE_B_192);
    const bool isDue = rule::TODAYS_SECURITY_IS_KNOWN() && fields.isDirty(Field::KEY_MANAGEMENT) &&
                       fields.number(Field::PMF) == PMF_DEFAULT;
    if (isDue && protecting != 0)
        fields.setNumber(Field::PMF, protecting == methods ? PMF_REQUIRED : PMF_OPTIONAL);
}

// Writes fields of one network.
class FieldWriter {
public:
    FieldWriter(WifiUtil& util, const char* iface, WifiNetwork& network, const FieldObserver& sent)
        : m_util(util), m_iface(iface), m_id(network.getNetworkId()),
          m_fields(NetworkFields::of(network)), m_sent(sent) {}

    void saveIfDirty(const SavedField& row) {
        if (!m_fields.isDirty(row.field))
            return;
        const Value value = row.value(m_fields, row.field);
        if (value.action == Action::POSTPONE)
            return;
        const bool accepted = value.action == Action::SKIP || write(row, value);
        if (accepted || !rule::REFUSED_FIELD_FAILS_SAVE())
            m_fields.setDirty(row.field, false);
    }

    const char* refused() const { return m_refused; }

private:
    bool write(const SavedField& row, const Value& value) {
        bool accepted = true;
        for (const char* const name : keysOf(row, m_fields))
            accepted = write(name, value) && accepted;
        if (row.command)
            m_util.executeCustom(m_iface, m_id, row.command,
                                 value.text == ANY_BSSID ? NO_BSSID : value.text.c_str());
        return accepted;
    }

    bool write(const char* name, const Value& value) {
        const bool accepted =
            value.action == Action::UNSET
                ? m_util.unsetNetworkValue(m_iface, m_id, name)
                : m_util.setNetworkValue(m_iface, m_id, name, sentText(name, value).c_str());
        if (m_sent)
            m_sent(name, value.text.c_str(), accepted);
        if (!accepted && !m_refused)
            m_refused = name;
        return accepted;
    }

    // The driver puts the other texts in quotes.
    static std::string sentText(const char* name, const Value& value) {
        return std::strcmp(name, SAE_PASSWORD) == 0 ? quoted(value.text.c_str()) : value.text;
    }

    WifiUtil& m_util;
    const char* m_iface;
    unsigned char m_id;
    NetworkFields& m_fields;
    const FieldObserver& m_sent;
    const char* m_refused = nullptr;
};

} // namespace

const char* saveDirtyFields(WifiUtil& util, const char* iface, WifiNetwork& network,
                            const FieldObserver& sent) noexcept {
    FieldWriter writer(util, iface, network, sent);
    protectManagementFrames(NetworkFields::of(network));
    for (const SavedField& row : SAVED_FIELDS)
        writer.saveIfDirty(row);
    return writer.refused();
}

} // namespace platwifi
