#pragma once

#include <algorithm>

// Bands, channels and signals of IEEE 802.11. All of it is in this header because the command line links only
// what the library exports.

namespace platwifi {

/// A range of frequencies in MHz, whose channels are numbered in steps of 5 MHz.
struct Band {
    int lowest;       ///< the frequency of a channel
    int highest;      ///< the same
    int base;         ///< the frequency of channel 0
    const char* name; ///< as people call it
};

// clang-format off
inline constexpr Band BANDS[] = {
    {2412, 2472, 2407, "2.4 GHz"},
    {2484, 2484, 2414, "2.4 GHz"}, // channel 14
    {5160, 5895, 5000, "5 GHz"},
    {5935, 5935, 5925, "6 GHz"},   // channel 2
    {5955, 7115, 5950, "6 GHz"},
};
// clang-format on

inline constexpr int CHANNEL_WIDTH = 5; ///< MHz from one channel number to the next

/// The band of a channel with this frequency in MHz; null where no channel has it.
constexpr const Band* bandAt(int megahertz) noexcept {
    for (const Band& band : BANDS) {
        const bool isInside = band.lowest <= megahertz && megahertz <= band.highest;
        if (isInside && (megahertz - band.base) % CHANNEL_WIDTH == 0)
            return &band;
    }
    return nullptr;
}

/// The channel with this frequency in MHz; 0 for none.
constexpr int channelInBands(int megahertz) noexcept {
    const Band* const band = bandAt(megahertz);
    return band ? (megahertz - band->base) / CHANNEL_WIDTH : 0;
}

/// A signal in percent: 0 at -100 dBm and below, 100 at -50 dBm and above.
constexpr int percentOf(int dbm) noexcept {
    return 2 * (std::clamp(dbm, -100, -50) + 100);
}

} // namespace platwifi
