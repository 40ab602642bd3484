#include "settings/SavedFields.h"

#include "model/NetworkFields.h"
#include "model/NetworkFunctions.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"
#include "supplicant/WifiUtil.h"

#include <cstring>
#include <optional>
#include <string>
#include <utility>

namespace platwifi {
namespace {

constexpr const char* EMPTY = "\"\""; // the supplicant's notation of an empty text
constexpr const char* MASK = "*";     // what the supplicant answers in place of a secret

// What a save does with a dirty field.
struct Value {
    bool staysDirty;                 // there is nothing to write yet
    std::optional<std::string> text; // without one the supplicant keeps its value
};

Value send(std::string text) {
    return {false, std::move(text)};
}

Value skip() {
    return {false, {}};
}

Value postpone() {
    return {true, {}};
}

// How a field's value is written. Each function takes the field of its row.

Value required(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return text ? send(text) : postpone();
}

Value orEmpty(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return send(text ? text : EMPTY);
}

// A secret that was loaded is the mask; it was not changed. quirk: SAVE-9
Value masked(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return text && std::strcmp(text, MASK) == 0 ? skip() : orEmpty(fields, field);
}

// Signed, as the supplicant's numbers are: those above INT_MAX become negative. quirk: SAVE-11
Value decimal(const NetworkFields& fields, Field field) {
    return send(std::to_string(static_cast<int>(fields.number(field))));
}

// A set is compared as a whole: there is no word for several flags, so the supplicant keeps its value.
// quirk: SAVE-5
template <const auto& WORDS>
Value oneWord(const NetworkFields& fields, Field field) {
    const unsigned int number = fields.number(field);
    if (const Word* const word = wordFor(WORDS, number))
        return send(word->text);
    return number == 0 ? postpone() : skip();
}

bool isAnyBssid(const char* bssid) {
    return !bssid || std::strcmp(bssid, "any") == 0;
}

Value bssid(const NetworkFields& fields, Field field) {
    const char* const text = fields.text(field);
    return send(isAnyBssid(text) ? NO_BSSID : text);
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
    {Field::KEY_MANAGEMENT, "key_mgmt", oneWord<KEY_MANAGEMENT_WORDS>},
    {Field::PRIORITY, "priority", decimal},
    {Field::NETWORK_MODE, "mode", decimal},
    {Field::AUTH_ALG, "auth_alg", oneWord<AUTH_ALG_WORDS>},
    {Field::PAIRWISE_CIPHERS, "pairwise", oneWord<PAIRWISE_WORDS>},
    {Field::GROUP_CIPHERS, "group", oneWord<GROUP_WORDS>},
    {Field::EAP_MODES, "eap", oneWord<EAP_WORDS>},
    {Field::PROTOCOL, "proto", oneWord<PROTOCOL_WORDS>},
    {Field::WEP_INDEX, "wep_tx_keyidx", decimal},
    {Field::WEP_KEY0, "wep_key0", masked},
    {Field::WEP_KEY1, "wep_key1", masked},
    {Field::WEP_KEY2, "wep_key2", masked},
    {Field::WEP_KEY3, "wep_key3", masked},
    {Field::EAP_IDENTITY, "identity", orEmpty},
    {Field::EAP_ANONYMOUS_IDENTITY, "anonymous_identity", orEmpty},
    {Field::EAP_PASSWORD, "password", masked},
    {Field::PSK, "psk", masked},
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

// Writes fields of one network. A value that the supplicant refuses changes nothing for the others: the
// result of a save is that of saving the configuration alone.
class FieldWriter {
public:
    FieldWriter(WifiUtil& util, const char* iface, WifiNetwork& network, const FieldObserver& sent)
        : m_util(util), m_iface(iface), m_id(network.getNetworkId()),
          m_fields(NetworkFields::of(network)), m_sent(sent) {}

    void saveIfDirty(const SavedField& row) const {
        if (!m_fields.isDirty(row.field))
            return;
        const Value value = row.value(m_fields, row.field);
        if (value.staysDirty)
            return;
        if (value.text)
            write(row, value.text->c_str());
        m_fields.setDirty(row.field, false);
    }

private:
    void write(const SavedField& row, const char* value) const {
        const bool accepted = m_util.setNetworkValue(m_iface, m_id, row.key, value);
        if (m_sent)
            m_sent(row.key, value, accepted);
        if (row.command)
            m_util.executeCustom(m_iface, m_id, row.command, value);
    }

    WifiUtil& m_util;
    const char* m_iface;
    unsigned char m_id;
    NetworkFields& m_fields;
    const FieldObserver& m_sent;
};

} // namespace

void saveDirtyFields(WifiUtil& util, const char* iface, WifiNetwork& network,
                     const FieldObserver& sent) noexcept {
    const FieldWriter writer(util, iface, network, sent);
    for (const SavedField& row : SAVED_FIELDS)
        writer.saveIfDirty(row);
}

} // namespace platwifi
