#pragma once

namespace cli {

/// Why a connection fails.
enum class Cause {
    WRONG_KEY,
    REFUSED, ///< by the access point, for another reason than the key
    LOGIN_REFUSED,
    SERVER_NOT_TRUSTED,
    CERTIFICATE_FILE,
    NOT_IN_RANGE,
    OTHER_SECURITY,
    NEEDS_PMF_OR_WPA3,
    TIMED_OUT,
    ADAPTER_BLOCKED,
    SUPPLICANT_GONE,
};

/// What users and programs see of a cause.
struct CauseEntry {
    Cause cause;
    int exitStatus;    ///< of the program
    const char* word;  ///< in JSON
    const char* found; ///< what is wrong, where the supplicant reports nothing more exact
    const char* step;  ///< the next step
};

const CauseEntry& entryOf(Cause cause);

} // namespace cli
