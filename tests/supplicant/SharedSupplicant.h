#pragma once

#include "Supplicant.h"

namespace test {

constexpr const char* WLAN = "wlan0";

/// The supplicant that several tests use one after the other, because its start takes longer than a test.
/// The first call starts it.
Supplicant& sharedSupplicant();

/// Unloads the settings and the driver, and stops the shared supplicant if it runs. The last test is
/// followed by this.
void stopSharedSupplicant();

} // namespace test
