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

inline constexpr std::size_t UnitsOfWord = sizeof(std::uint64_t) / sizeof(Char);

inline std::uint64_t WordAt(const Char* unit) {
    std::uint64_t word;
    std::memcpy(&word, unit, sizeof word);
    return word;
}

// The same units, compared as memory, four at a time: what a search through many texts wants.
inline bool SameUnits(StringView left, StringView right) {
    const std::size_t size = left.size();
    if (size != right.size()) return false;
    if (size < UnitsOfWord) return left == right;
    const std::size_t last = size - UnitsOfWord; // may begin inside the word before
    for (std::size_t unit = 0; unit < last; unit += UnitsOfWord) {
        if (WordAt(left.data() + unit) != WordAt(right.data() + unit)) return false;
    }
    return WordAt(left.data() + last) == WordAt(right.data() + last);
}

// Same text, same number, in every run on machines of one byte order. Four units at a time.
inline std::uint64_t HashText(StringView text) {
    std::uint64_t hash = text.size() * 0x9E3779B97F4A7C15u;
    const Char* unit = text.data();
    for (std::size_t word = 0; word < text.size() / UnitsOfWord; ++word, unit += UnitsOfWord) {
        hash = (hash ^ WordAt(unit)) * 0xD6E8FEB86659FD93u;
        hash ^= hash >> 32;
    }
    std::uint64_t rest = 0;
    for (std::size_t place = 0; place < text.size() % UnitsOfWord; ++place) {
        rest = rest << 16 | unit[place];
    }
    return MixBits(hash ^ rest);
}

// How a dictionary looks at its keys: the cheap form that look-ups take, and its hash. Specialise
// it for a key type of one's own.
template <class K>
struct TKeyTraits {
    static_assert(std::is_integral_v<K> || std::is_enum_v<K> || std::is_pointer_v<K>);
    using View = K;
    static bool Same(K left, K right) { return left == right; }
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
    static bool Same(StringView left, StringView right) { return SameUnits(left, right); }
    static std::uint64_t Hash(StringView key) { return HashText(key); }
};

} // namespace quorin
