#pragma once

#include "values/Cause.h"

#include <string>

namespace cli {

/// Why a connection fails, as far as it can be seen.
struct Diagnosis {
    Cause cause;
    std::string found; ///< what is wrong; "" for the words of the cause
    std::string step;  ///< the next step; "" for that of the cause
};

} // namespace cli
