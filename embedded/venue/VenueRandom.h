#pragma once

#include "platform/rtl/Hash.h"
#include "platform/rtl/Types.h"

#include <cstdint>

namespace quorin {

// The venue's only source of chance: whole numbers alone, so that one seed gives one sequence on
// every machine.
class TVenueRandom {
public:
    explicit TVenueRandom(std::uint64_t seed) : FState(MixBits(seed + Stride)) {}

    std::uint64_t Next() { return MixBits(FState += Stride); }
    // From 0 to below `count`, which is at least 1.
    Integer Below(Integer count) {
        return static_cast<Integer>((Next() >> 32) * static_cast<std::uint64_t>(count) >> 32);
    }
    Integer Between(Integer first, Integer last) { return first + Below(last - first + 1); }
    bool OneIn(Integer count) { return Below(count) == 0; }
    bool Percent(Integer chance) { return Below(100) < chance; }

    // Bell-shaped around 0: a sum of four. NoiseWidth is its standard deviation.
    static constexpr Integer NoiseWidth = 37'837;
    Integer Noise() {
        std::uint64_t word = Next();
        Integer sum = 0;
        for (int part = 0; part < 4; ++part, word >>= 16) {
            sum += static_cast<Integer>(word & 0xFFFF) - 0x8000;
        }
        return sum;
    }

private:
    static constexpr std::uint64_t Stride = 0x9E3779B97F4A7C15u;

    std::uint64_t FState;
};

} // namespace quorin
