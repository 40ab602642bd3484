#pragma once

#include "model/UnreadFields.h"
#include "settings/replies/NetworkKeys.h"

class WifiHostSettings;
class WifiNetwork;

namespace platwifi {

/// Reads the fields that the load of a network has left out, when they are needed. The caller of the network's
/// setters holds lockSettings().
class LateFields : public UnreadFields {
public:
    /// @param settings  have loaded the network
    /// @param network   owns this object
    LateFields(WifiHostSettings& settings, const WifiNetwork& network, const UnreadKeys& keys)
        : m_settings(settings), m_network(network), m_keys(keys) {}

    bool readBeforeSet(NetworkFields& fields, Field field) override;
    void readAfterChange(NetworkFields& fields) override;

private:
    template <typename Reading>
    bool read(NetworkFields& fields, Reading reading);

    WifiHostSettings& m_settings;
    const WifiNetwork& m_network;
    UnreadKeys m_keys;
};

} // namespace platwifi
