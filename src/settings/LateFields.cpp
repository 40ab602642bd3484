#include "settings/LateFields.h"

#include "model/NetworkFields.h"
#include "settings/WifiHostSettings.h"

namespace platwifi {

// What the supplicant has is no change of the network.
template <typename Reading>
bool LateFields::read(NetworkFields& fields, Reading reading) {
    const FieldSet dirty = fields.dirtyFields();
    UnreadKeys keys = m_keys;
    const bool isRead =
        m_settings.readLate(m_network, [&](const ValueSource& valueOf) { reading(keys, valueOf); });
    fields.setDirtyFields(dirty);
    if (isRead)
        m_keys = keys;
    return isRead;
}

bool LateFields::readBeforeSet(NetworkFields& fields, Field field) {
    const bool isKnown =
        !m_keys.has(field) || read(fields, [&](UnreadKeys& keys, const ValueSource& valueOf) {
            keys.read(field, fields, valueOf);
        });
    m_keys.remove(field);
    return isKnown;
}

void LateFields::readAfterChange(NetworkFields& fields) {
    if (!m_keys.haveUsed(fields))
        return;
    read(fields,
         [&](UnreadKeys& keys, const ValueSource& valueOf) { keys.readUsed(fields, valueOf); });
}

} // namespace platwifi
