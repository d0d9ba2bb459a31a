#pragma once

#include "platform/rtl/Types.h"

#include <cstring>
#include <type_traits>

namespace quorin {

// Spreads the bits of a word over the whole result: one round of multiply and fold.
inline std::uint64_t MixBits(std::uint64_t word) {
    word ^= word >> 32;
    word *= 0x9E3779B97F4A7C15u;
    word ^= word >> 29;
    word *= 0xBF58476D1CE4E5B9u;
    return word ^ (word >> 32);
}

// Same text, same number, in every run on machines of one byte order. Four units at a time.
inline std::uint64_t HashText(StringView text) {
    constexpr std::size_t step = sizeof(std::uint64_t) / sizeof(Char);
    std::uint64_t hash = text.size() * 0x9E3779B97F4A7C15u;
    const Char* unit = text.data();
    std::size_t left = text.size();
    for (; left >= step; left -= step, unit += step) {
        std::uint64_t word;
        std::memcpy(&word, unit, sizeof word);
        hash = (hash ^ word) * 0xD6E8FEB86659FD93u;
        hash ^= hash >> 32;
    }
    std::uint64_t rest = 0;
    if (left > 0) std::memcpy(&rest, unit, left * sizeof(Char));
    return MixBits(hash ^ rest);
}

// How a dictionary looks at its keys: the cheap form that look-ups take, and its hash. Specialise
// it for a key type of one's own.
template <class K>
struct TKeyTraits {
    static_assert(std::is_integral_v<K> || std::is_enum_v<K> || std::is_pointer_v<K>);
    using View = K;
    static std::uint64_t Hash(K key) {
        if constexpr (std::is_pointer_v<K>) {
            return MixBits(reinterpret_cast<std::uintptr_t>(key));
        } else {
            return MixBits(static_cast<std::uint64_t>(key));
        }
    }
};

template <>
struct TKeyTraits<String> {
    using View = StringView;
    static std::uint64_t Hash(StringView key) { return HashText(key); }
};

} // namespace quorin
