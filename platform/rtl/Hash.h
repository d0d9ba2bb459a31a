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

// GCC 12 warns of literals that are shorter than a word, which nobody reads words of.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
#pragma GCC diagnostic ignored "-Wstringop-overread"
#endif
inline std::uint64_t WordAt(const Char* unit) {
    std::uint64_t word;
    std::memcpy(&word, unit, sizeof word);
    return word;
}
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

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

// Spreads the bits of both: the two halves of their product, one on the other.
inline std::uint64_t Fold(std::uint64_t left, std::uint64_t right) {
    __extension__ using TProduct = unsigned __int128;
    const TProduct product = static_cast<TProduct>(left) * right;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

// Same text, same number, in every run on machines of one byte order. Four units at a time; the
// last four may begin inside the word before.
inline std::uint64_t HashText(StringView text) {
    constexpr std::uint64_t lengthFactor = 0x9E3779B97F4A7C15u;
    constexpr std::uint64_t wordFactor = 0xD6E8FEB86659FD93u;
    const std::size_t size = text.size();
    std::uint64_t hash = size * lengthFactor;
    std::uint64_t last = 0;
    if (size >= UnitsOfWord) {
        for (std::size_t unit = 0; unit < size - UnitsOfWord; unit += UnitsOfWord) {
            hash = Fold(hash ^ WordAt(text.data() + unit), wordFactor);
        }
        last = WordAt(text.data() + size - UnitsOfWord);
    } else {
        for (const Char unit : text) last = last << 16 | unit;
    }
    return Fold(hash ^ last, wordFactor);
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
