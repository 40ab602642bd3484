#include "settings/LateFields.h"

#include "model/NetworkFields.h"
#include "settings/WifiHostSettings.h"

namespace platwifi {

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

// What the supplicant has is no change of the network.
bool LateFields::read(NetworkFields& fields,
                      const std::function<void(UnreadKeys&, const ValueSource&)>& reading) {
    const FieldSet dirty = fields.dirtyFields();
    UnreadKeys keys = m_keys;
    const bool isRead =
        m_settings.readLate(m_network, [&](const ValueSource& valueOf) { reading(keys, valueOf); });
    fields.setDirtyFields(dirty);
    if (isRead)
        m_keys = keys;
    return isRead;
}

} // namespace platwifi
