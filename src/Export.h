#pragma once

/// Marks what libplatwifi.so offers; everything else is built hidden.
#define PLATWIFI_API __attribute__((visibility("default")))
