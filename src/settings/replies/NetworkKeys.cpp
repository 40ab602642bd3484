#include "settings/replies/NetworkKeys.h"

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/NetworkFunctions.h"
#include "model/Vocabulary.h"
#include "model/WifiTypes.h"
#include "settings/replies/Columns.h"
#include "settings/replies/ValueWords.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace platwifi {
namespace {

// What is done with the value of a field.

using OnValue = void (*)(NetworkFields&, Field, const char* value);

void text(NetworkFields& fields, Field field, const char* value) {
    fields.setText(field, value);
}

template <unsigned int (*MEANING)(const char*)>
void number(NetworkFields& fields, Field field, const char* value) {
    fields.setNumber(field, MEANING(value));
}

unsigned int decimal(const char* value) {
    return static_cast<unsigned int>(decimalOf(value));
}

// Overrides the status by the flag of the list, which is read before the fields.
void disabled(NetworkFields& fields, Field status, const char* value) {
    if (decimalOf(value) != 0)
        fields.setNumber(status, NETWORK_STATUS_DISABLED);
}

// scan_ssid=0: the SSID is broadcast. Any other value has probe requests sent for it, as hidden networks need.
unsigned int isBroadcast(const char* scanSsid) {
    return std::strcmp(scanSsid, "0") == 0 ? 1 : 0;
}

// What is done with a field that is not set: the network gets the supplicant's default, where it has one.

using OnUnset = void (*)(NetworkFields&, Field);

void unchanged(NetworkFields& /*fields*/, Field /*field*/) {}

void noBssid(NetworkFields& fields, Field field) {
    fields.setText(field, NO_BSSID);
}

template <unsigned int FLAGS>
void flags(NetworkFields& fields, Field field) {
    fields.setNumber(field, FLAGS);
}

constexpr unsigned int ANY_KEY_MGMT = KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP;
constexpr unsigned int ANY_PAIRWISE = PAIRWISE_TKIP | PAIRWISE_CCMP;
constexpr unsigned int ANY_GROUP = GROUP_TKIP | GROUP_CCMP | GROUP_WEP104 | GROUP_WEP40;
constexpr unsigned int ANY_PROTO = PROTOCOL_WPA | PROTOCOL_RSN;

// Whether the profile has a row.

using InProfile = bool (*)();

bool inEach() {
    return true;
}

bool ifKnown() {
    return rule::TODAYS_SECURITY_IS_KNOWN();
}

bool ifAllAreRead() {
    return !rule::ONLY_USABLE_FIELDS_ARE_READ();
}

bool ifUsableAreRead() {
    return rule::ONLY_USABLE_FIELDS_ARE_READ();
}

// Whether a network's security uses a field; it is asked for only then.

struct Security {
    const NetworkFields& fields;
    const FieldSet& partlyKnown; // the fields with a word that memory has no number for
};

using Uses = bool (*)(const Security&);

bool always(const Security& /*security*/) {
    return true;
}

bool ifWep(const Security& security) {
    const unsigned int methods = security.fields.number(Field::KEY_MANAGEMENT);
    return (methods & (KEY_MGMT_NONE | KEY_MGMT_IEEE8021X)) != 0;
}

template <Uses USES>
bool onlyIf(const Security& security) {
    return !rule::ONLY_USABLE_FIELDS_ARE_READ() || USES(security);
}

// Whether a set may have one of these flags. An empty set stands for the default of the supplicant, or for
// words that are not known.
bool mayHave(const Security& security, Field field, unsigned int flags) {
    const unsigned int set = security.fields.number(field);
    return set == 0 || (set & flags) != 0 || contains(security.partlyKnown, field);
}

constexpr unsigned int METHODS_WITHOUT_RSN = KEY_MGMT_NONE | KEY_MGMT_IEEE8021X | KEY_MGMT_WPA_NONE;
constexpr unsigned int EAP_METHODS = KEY_MGMT_WPA_EAP | KEY_MGMT_IEEE8021X |
                                     KEY_MGMT_WPA_EAP_SHA256 | KEY_MGMT_FT_EAP |
                                     KEY_MGMT_SUITE_B_192;
constexpr unsigned int TUNNELS = EAP_PEAP | EAP_TTLS | EAP_FAST;

// SAE takes this key where it has no password of its own.
bool preSharedKey(const Security& security) {
    return mayHave(security, Field::KEY_MANAGEMENT, PSK_METHODS | SAE_METHODS | KEY_MGMT_WPA_NONE);
}

bool sae(const Security& security) {
    return mayHave(security, Field::KEY_MANAGEMENT, SAE_METHODS);
}

bool rsn(const Security& security) {
    return mayHave(security, Field::KEY_MANAGEMENT, ~METHODS_WITHOUT_RSN);
}

bool eap(const Security& security) {
    return mayHave(security, Field::KEY_MANAGEMENT, EAP_METHODS);
}

// TLS has its key, and nothing inside.
bool eapBesideTls(const Security& security) {
    return eap(security) &&
           mayHave(security, Field::EAP_MODES, ~static_cast<unsigned int>(EAP_TLS));
}

bool isSet(const Security& security, Field field) {
    const char* const text = security.fields.text(field);
    return text && *text != '\0';
}

bool eapKey(const Security& security) {
    return eap(security) && isSet(security, Field::PRIVATE_KEY_FILE);
}

// The methods that a tunnel may have without EAP, and the list of those with EAP. Any other text leaves the
// choice to the supplicant, which then offers TLS.
constexpr const char* INNER_METHODS[] = {"auth=PAP", "auth=CHAP", "auth=MSCHAP", "autheap="};

bool mayHaveInnerTls(const Security& security) {
    const char* const phase2 = security.fields.text(Field::PHASE2_STEP);
    const auto isIn = [phase2](const char* word) { return std::strstr(phase2, word) != nullptr; };
    return !phase2 || isIn("TLS") ||
           std::none_of(std::begin(INNER_METHODS), std::end(INNER_METHODS), isIn);
}

bool innerTls(const Security& security) {
    return eap(security) && mayHave(security, Field::EAP_MODES, TUNNELS) &&
           mayHaveInnerTls(security);
}

bool innerKey(const Security& security) {
    return innerTls(security) && isSet(security, Field::PRIVATE_KEY_FILE2);
}

struct NetworkKey;

struct KeyRange {
    const NetworkKey* first = nullptr;
    const NetworkKey* last = nullptr;

    const NetworkKey* begin() const { return first; }
    const NetworkKey* end() const { return last; }
};

struct NetworkKey {
    const char* name;
    Field field;
    OnValue onValue;
    Uses uses = always;
    InProfile inProfile = inEach;
    OnUnset onUnset = unchanged;
    KeyRange dependents = {}; // asked for right after this field, and only where it has a value
};

constexpr NetworkKey WEP_KEYS[] = {
    {"wep_key0", Field::WEP_KEY0, text},
    {"wep_key1", Field::WEP_KEY1, text},
    {"wep_key2", Field::WEP_KEY2, text},
    {"wep_key3", Field::WEP_KEY3, text},
};
constexpr KeyRange ALL_WEP_KEYS{std::begin(WEP_KEYS), std::end(WEP_KEYS)};

// In the order in which they are asked for. A field that decides whether others are used comes before them.
//
// The list of networks has what "disabled" and "bssid" say. Ciphers and protocols are read for every network,
// because the type of security in the document follows from them.
// clang-format off
constexpr NetworkKey NETWORK_KEYS[] = {
    {"disabled", Field::NETWORK_STATUS, disabled, always, ifAllAreRead},
    {"bssid", Field::BSSID, text, always, ifAllAreRead, noBssid},
    {"mode", Field::NETWORK_MODE, number<decimal>},
    {"priority", Field::PRIORITY, number<decimal>},
    {"key_mgmt", Field::KEY_MANAGEMENT, number<keyManagementIn>, always, inEach, flags<ANY_KEY_MGMT>},
    {"psk", Field::PSK, text, onlyIf<preSharedKey>},
    {"sae_password", Field::PSK, text, onlyIf<sae>, ifKnown}, // of any length, in place of a pre-shared key
    {"ieee80211w", Field::PMF, number<decimal>, onlyIf<rsn>, ifKnown},
    {"pairwise", Field::PAIRWISE_CIPHERS, number<pairwiseCiphersIn>, always, inEach, flags<ANY_PAIRWISE>},
    {"group", Field::GROUP_CIPHERS, number<groupCiphersIn>, always, inEach, flags<ANY_GROUP>},
    {"proto", Field::PROTOCOL, number<protocolsIn>, always, inEach, flags<ANY_PROTO>},
    {"eap", Field::EAP_MODES, number<eapModeIn>, onlyIf<eap>},
    {"auth_alg", Field::AUTH_ALG, number<authAlgIn>},
    {"wep_tx_keyidx", Field::WEP_INDEX, number<decimal>, ifWep, inEach, unchanged, ALL_WEP_KEYS},
    {"scan_ssid", Field::SSID_BROADCASTED, number<isBroadcast>},
    {"identity", Field::EAP_IDENTITY, text, onlyIf<eap>},
    {"anonymous_identity", Field::EAP_ANONYMOUS_IDENTITY, text, onlyIf<eap>},
    {"password", Field::EAP_PASSWORD, text, onlyIf<eapBesideTls>},
    {"private_key_passwd", Field::PRIVATE_KEY_PASSWORD, text, always, ifAllAreRead},
    {"ca_cert", Field::CA_CERTIFICATE, text, onlyIf<eap>},
    {"ca_path", Field::CA_CERTIFICATE_DIR, text, onlyIf<eap>},
    {"client_cert", Field::CLIENT_CERTIFICATE, text, onlyIf<eap>},
    {"private_key", Field::PRIVATE_KEY_FILE, text, onlyIf<eap>},
    {"private_key_passwd", Field::PRIVATE_KEY_PASSWORD, text, onlyIf<eapKey>, ifUsableAreRead},
    {"phase1", Field::PHASE1_STEP, text, onlyIf<eap>},
    {"phase2", Field::PHASE2_STEP, text, onlyIf<eapBesideTls>},
    {"private_key_passwd2", Field::PRIVATE_KEY_PASSWORD2, text, always, ifAllAreRead}, // quirk: LOAD-15
    {"ca_cert2", Field::CA_CERTIFICATE2, text, onlyIf<innerTls>},
    {"ca_path2", Field::CA_CERTIFICATE_DIR2, text, onlyIf<innerTls>},
    {"client_cert2", Field::CLIENT_CERTIFICATE2, text, onlyIf<innerTls>},
    {"private_key2", Field::PRIVATE_KEY_FILE2, text, onlyIf<innerTls>},
    {"private_key_passwd2", Field::PRIVATE_KEY_PASSWORD2, text, onlyIf<innerKey>, ifUsableAreRead},
};
// clang-format on

// The fields from which the use of others follows.
constexpr FieldSet METHOD_FIELDS = setOf(Field::KEY_MANAGEMENT, Field::EAP_MODES);

using Rows = std::uint64_t;
static_assert(std::size(NETWORK_KEYS) <= 64, "each row needs a bit of its own");

Rows bitOf(const NetworkKey& key) {
    return Rows{1} << (&key - NETWORK_KEYS);
}

const char* nameOf(const NetworkKey& key) {
    return key.field == Field::PRIVATE_KEY_PASSWORD2 ? rule::INNER_KEY_PASSWORD() : key.name;
}

// Fields that depend on another one are read and left out together with it.
bool covers(const NetworkKey& key, Field field) {
    const auto isOfField = [field](const NetworkKey& each) { return each.field == field; };
    return isOfField(key) || std::any_of(key.dependents.begin(), key.dependents.end(), isOfField);
}

Rows rowsOf(Field field) {
    Rows rows = 0;
    for (const NetworkKey& key : NETWORK_KEYS)
        rows |= covers(key, field) ? bitOf(key) : 0;
    return rows;
}

// The rows that a read of a network begins with.
Rows rowsOfProfile() {
    Rows rows = 0;
    for (const NetworkKey& key : NETWORK_KEYS)
        rows |= key.inProfile() ? bitOf(key) : 0;
    return rows;
}

// Whether a value has more words than flags are known.
bool hasOtherWords(const char* value, unsigned int known) {
    constexpr const char* BLANKS = " \t";
    unsigned int words = 0;
    for (; *(value += std::strspn(value, BLANKS)) != '\0'; value += std::strcspn(value, BLANKS))
        ++words;
    for (; known != 0; known &= known - 1)
        --words;
    return words != 0;
}

// Reads the fields of one network.
class Reading {
public:
    Reading(NetworkFields& fields, FieldSet& partlyKnown, const ValueSource& valueOf)
        : m_fields(fields), m_partlyKnown(partlyKnown), m_valueOf(valueOf) {}

    bool isUsed(const NetworkKey& key) const { return key.uses({m_fields, m_partlyKnown}); }

    void read(const NetworkKey& key) {
        if (!readOne(key))
            return;
        for (const NetworkKey& dependent : key.dependents)
            readOne(dependent);
    }

private:
    // Whether the field has a value.
    bool readOne(const NetworkKey& key) {
        const char* const value = m_valueOf(nameOf(key));
        if (!value) {
            key.onUnset(m_fields, key.field);
            return false;
        }
        key.onValue(m_fields, key.field, value);
        if (contains(METHOD_FIELDS, key.field) && hasOtherWords(value, m_fields.number(key.field)))
            m_partlyKnown |= setOf(key.field);
        return true;
    }

    NetworkFields& m_fields;
    FieldSet& m_partlyKnown;
    const ValueSource& m_valueOf;
};

} // namespace

// A field that has several rows is read by the first of them.
bool UnreadKeys::has(Field field) const {
    const Rows rows = rowsOf(field) & rowsOfProfile();
    return rows != 0 && (m_rows & rows) == rows;
}

void UnreadKeys::remove(Field field) {
    m_rows &= ~rowsOf(field);
}

bool UnreadKeys::haveUsed(const NetworkFields& fields) const {
    return std::any_of(std::begin(NETWORK_KEYS), std::end(NETWORK_KEYS),
                       [&](const NetworkKey& key) {
                           return (m_rows & bitOf(key)) != 0 && key.uses({fields, m_partlyKnown});
                       });
}

void UnreadKeys::read(Field field, NetworkFields& fields, const ValueSource& valueOf) {
    readEach(rowsOf(field), Use::ANY, fields, valueOf);
}

void UnreadKeys::readUsed(NetworkFields& fields, const ValueSource& valueOf) {
    readEach(~Rows{0}, Use::PRESENT, fields, valueOf);
}

// Whether a field is used may follow from one that was read before it.
void UnreadKeys::readEach(Rows rows, Use use, NetworkFields& fields, const ValueSource& valueOf) {
    Reading reading(fields, m_partlyKnown, valueOf);
    for (const NetworkKey& key : NETWORK_KEYS) {
        if ((m_rows & rows & bitOf(key)) == 0 || (use == Use::PRESENT && !reading.isUsed(key)))
            continue;
        reading.read(key);
        m_rows &= ~bitOf(key);
    }
}

// Where every field is read, one that is left out has no use, and its value in memory stands for none.
UnreadKeys readNetworkKeys(WifiNetwork& network, const ValueSource& valueOf) {
    UnreadKeys keys;
    keys.m_rows = rowsOfProfile();
    keys.readUsed(NetworkFields::of(network), valueOf);
    return rule::ONLY_USABLE_FIELDS_ARE_READ() ? keys : UnreadKeys();
}

} // namespace platwifi
