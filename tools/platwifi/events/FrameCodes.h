#pragma once

namespace cli {

/// The meaning of a reason code of IEEE 802.11, which ends an authentication or an association.
/// @return plain words; "" for a code that is reserved or of no use to a station
const char* reasonMeaning(int code);

/// The meaning of a status code of IEEE 802.11, which refuses an authentication or an association.
/// @return plain words; "" for a code that is reserved or of no use to a station
const char* statusMeaning(int code);

} // namespace cli
