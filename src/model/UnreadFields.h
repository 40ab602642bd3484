#pragma once

#include "model/Field.h"

namespace platwifi {

class NetworkFields;

/// The fields of a network that its load has not read, because its security does not use them. They look unset.
/// NetworkFields has them read when they are needed.
///
/// Both functions set fields of the network, and leave the dirty flags as they were.
class UnreadFields {
public:
    UnreadFields() = default;
    virtual ~UnreadFields() = default;

    UnreadFields(const UnreadFields&) = delete;
    UnreadFields& operator=(const UnreadFields&) = delete;

    /// Reads the field if it is unread, so that the value that it is about to get can be compared. The field
    /// is never read again.
    /// @return false when it is unread and the supplicant did not answer: its value is not known
    virtual bool readBeforeSet(NetworkFields& fields, Field field) = 0;

    /// After a change, reads the fields that the security uses now. They stay unread when the supplicant does
    /// not answer.
    virtual void readAfterChange(NetworkFields& fields) = 0;
};

} // namespace platwifi
