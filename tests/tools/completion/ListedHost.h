#pragma once

#include "support/LoadedHost.h"

namespace test {

/// A supplicant with networks whose names a shell would take apart.
struct ListedHost : LoadedHost {
    ListedHost();
};

} // namespace test
