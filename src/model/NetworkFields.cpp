#include "model/NetworkFields.h"

#include "TextCopy.h"
#include "model/NetworkFunctions.h"
#include "model/WifiTypes.h"

#include <cassert>
#include <cstring>

namespace platwifi {
namespace {

constexpr FieldSet NEVER_WRITTEN =
    setOf(Field::IP_ADDRESS, Field::NETWORK_ID, Field::NETWORK_STATUS, Field::STRENGTH);

constexpr FieldSet WEP_KEY_FIELDS =
    setOf(Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2, Field::WEP_KEY3);

constexpr FieldSet BYTES = setOf(Field::NETWORK_MODE, Field::NETWORK_ID);

// The broadcast flag of a new network is false here and true in the supplicant, so that false, too, has
// to be written (quirk: NET-3). What comes from the supplicant is stored without a comparison.
constexpr FieldSet ALWAYS_CHANGED = setOf(Field::SSID_BROADCASTED) | NEVER_WRITTEN;

std::size_t textIndex(Field field) {
    assert(indexOf(field) < TEXT_FIELD_COUNT);
    return indexOf(field);
}

std::size_t numberIndex(Field field) {
    assert(indexOf(field) >= TEXT_FIELD_COUNT);
    return indexOf(field) - TEXT_FIELD_COUNT;
}

// Equal texts have equal hashes. That of null is the one of "".
std::uint32_t hashOf(const char* text) {
    std::uint32_t hash = 0;
    for (; text && *text; ++text)
        hash = (hash << 5 | hash >> 27) ^ static_cast<unsigned char>(*text);
    return hash;
}

// Null and "" count as the same.
bool sameText(const char* left, const char* right) {
    return std::strcmp(left ? left : "", right ? right : "") == 0;
}

} // namespace

bool OwnedText::assign(const char* value) noexcept {
    if (sameText(m_text.get(), value))
        return false;
    m_text.reset(value ? copyOf(value) : nullptr); // copied before the old text is freed
    return true;
}

NetworkFields::NetworkFields() noexcept {
    m_numbers[numberIndex(Field::NETWORK_MODE)] = NETWORK_MODE_UNKNOWN;
    m_numbers[numberIndex(Field::PMF)] = PMF_DEFAULT;
}

WifiNetwork* NetworkFields::find(WifiNetwork* first, const char* ssid) noexcept {
    const std::uint32_t hash = hashOf(ssid);
    for (WifiNetwork* network = first; network; network = network->m_next) {
        if (network->m_fields->m_ssidHash == hash && hasSsid(network, ssid))
            return network;
    }
    return nullptr;
}

const char* NetworkFields::text(Field field) const noexcept {
    return m_texts[textIndex(field)].get();
}

bool NetworkFields::isKnown(Field field) noexcept {
    if (!m_unread || contains(NEVER_WRITTEN, field))
        return true;
    auto unread = std::move(m_unread);
    const bool isKnown = unread->readBeforeSet(*this, field);
    m_unread = std::move(unread);
    return isKnown;
}

bool NetworkFields::changed(Field field) noexcept {
    mark(field, true);
    if (!m_unread || contains(NEVER_WRITTEN, field))
        return true;
    auto unread = std::move(m_unread);
    unread->readAfterChange(*this);
    m_unread = std::move(unread);
    return true;
}

// A value that cannot be compared with that of the supplicant counts as changed.
bool NetworkFields::setText(Field field, const char* value) noexcept {
    const bool canBeCompared = isKnown(field);
    OwnedText& text = m_texts[textIndex(field)];
    if (contains(WEP_KEY_FIELDS, field) && value && *value == '\0') {
        text.clear();
        return false;
    }
    if (field == Field::SSID)
        m_ssidHash = hashOf(value);
    return (text.assign(value) || !canBeCompared) && changed(field);
}

unsigned int NetworkFields::number(Field field) const noexcept {
    return m_numbers[numberIndex(field)];
}

bool NetworkFields::setNumber(Field field, unsigned int value) noexcept {
    if (field == Field::WEP_INDEX && value >= WEP_KEY_COUNT)
        return false;
    const bool canBeCompared = isKnown(field);
    const unsigned int stored = contains(BYTES, field) ? value & 0xff : value;
    unsigned int& number = m_numbers[numberIndex(field)];
    if (number == stored && canBeCompared && !contains(ALWAYS_CHANGED, field))
        return false;
    number = stored;
    return changed(field);
}

bool NetworkFields::setDirty(Field field, bool dirty) noexcept {
    if (dirty)
        isKnown(field);
    mark(field, dirty);
    return true;
}

void NetworkFields::mark(Field field, bool dirty) noexcept {
    const FieldSet flag = setOf(field) & ~NEVER_WRITTEN;
    m_dirty = dirty ? m_dirty | flag : m_dirty & ~flag;
}

// A new anonymous identity is written with the next other change. quirk: NET-8
bool NetworkFields::needsSave() const noexcept {
    return (m_dirty & ~setOf(Field::EAP_ANONYMOUS_IDENTITY)) != 0;
}

} // namespace platwifi
