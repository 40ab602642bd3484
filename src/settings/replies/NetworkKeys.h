#pragma once

#include "FunctionRef.h"
#include "model/Field.h"

#include <cstdint>

class WifiNetwork;

namespace platwifi {

class NetworkFields;

/// Reads one field of a network from the supplicant. The value is valid until the next call; null when the
/// field is not set, or the supplicant did not answer.
using ValueSource = FunctionRef<const char*(const char* key)>;

/// The fields of a network that were not read, because its security does not use them. There are none where
/// every field is read.
///
/// "Uses" follows from the values in memory: the key management, and for some fields the EAP methods, the
/// inner authentication and the private key. Where one of these holds a word that memory has no number for,
/// every field counts as used that the word might need.
class UnreadKeys {
public:
    /// Whether nothing of this field was read.
    bool has(Field field) const;

    /// Whether one of them is used by the security that the network has now.
    bool haveUsed(const NetworkFields& fields) const;

    /// Reads this field alone, used or not.
    void read(Field field, NetworkFields& fields, const ValueSource& valueOf);

    /// Reads those that the security uses.
    void readUsed(NetworkFields& fields, const ValueSource& valueOf);

    /// The field is not to be read any more.
    void remove(Field field);

private:
    friend UnreadKeys readNetworkKeys(WifiNetwork& network, const ValueSource& valueOf);

    using Rows = std::uint64_t; // of the table, one bit a row

    enum class Use { ANY, PRESENT };
    void readEach(Rows rows, Use use, NetworkFields& fields, const ValueSource& valueOf);

    Rows m_rows = 0;
    FieldSet m_partlyKnown = 0; ///< the fields with a word that memory has no number for
};

/// Reads the fields, in a fixed order, into the network. The WEP index and keys are read only where the
/// key management, which is read before them, is NONE or IEEE8021X.
///
/// Under the profile `modern` a field is read only where the network's security uses it; status and BSSID, which
/// the list of networks shows, are not read.
/// @return the fields that may be read later
UnreadKeys readNetworkKeys(WifiNetwork& network, const ValueSource& valueOf);

} // namespace platwifi
