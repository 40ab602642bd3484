#pragma once

/// Marks what libplatwifi.so offers; everything else is built hidden.
#define PLATWIFI_API __attribute__((visibility("default")))

/// Marks a member of such a class that is not offered.
#define PLATWIFI_INTERNAL __attribute__((visibility("hidden")))
