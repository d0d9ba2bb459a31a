#pragma once

#include "platform/rtl/Hash.h"
#include "platform/rtl/Prefetch.h"
#include "platform/rtl/TList.h"

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace quorin {

// Keys to values, in the order of insertion, which removals of other keys do not disturb. Look-ups
// take a view of the key and allocate nothing. Removing takes constant time and moves no entry, so
// that a loop over the dictionary may remove any key; the loop's own references are empty once it
// has removed what they refer to. Adding may move entries and ends the validity of addresses and
// iterators. Values must be default-constructible.
template <class K, class V>
class TDictionary {
    using Traits = TKeyTraits<K>;
    using View = typename Traits::View;

    struct TEntry {
        K Key{};
        V Value{};
        std::uint32_t Hash = Dead;
    };
    struct TCell { // one place of the hash index
        std::uint32_t Hash = 0;
        std::uint32_t Entry = Empty;
    };
    static constexpr std::uint32_t Dead = 0; // no live entry has this hash
    static constexpr std::uint32_t Empty = 0xFFFFFFFF;
    static constexpr std::size_t FirstCells = 8;

    template <bool Const>
    class TIterator {
        using Owner = std::conditional_t<Const, const TDictionary, TDictionary>;
        using Value = std::conditional_t<Const, const V, V>;

    public:
        struct TItem {
            const K& Key;
            quorin::TDictionary<K, V>::template TIterator<Const>::Value& Value;
        };
        TIterator(Owner* owner, std::size_t position) : FOwner(owner), FPosition(position) {
            Skip();
        }
        TItem operator*() const {
            auto& entry = FOwner->FEntries[FPosition];
            return TItem{entry.Key, entry.Value};
        }
        TIterator& operator++() {
            ++FPosition;
            Skip();
            return *this;
        }
        bool AtEnd() const { return FPosition >= FOwner->FEntries.size(); }
        friend bool operator==(const TIterator& left, const TIterator& right) {
            return left.AtEnd() ? right.AtEnd() : left.FPosition == right.FPosition;
        }

    private:
        void Skip() {
            while (!AtEnd() && FOwner->FEntries[FPosition].Hash == Dead) ++FPosition;
        }
        Owner* FOwner;
        std::size_t FPosition;
    };

public:
    TDictionary() = default;
    TDictionary(const TDictionary&) = default;
    TDictionary& operator=(const TDictionary&) = default;
    // What is moved from is empty.
    TDictionary(TDictionary&& other) noexcept
        : FEntries(std::move(other.FEntries)), FCells(std::move(other.FCells)),
          FSpareKeys(std::move(other.FSpareKeys)), FCount(std::exchange(other.FCount, 0)) {}
    TDictionary& operator=(TDictionary&& other) noexcept {
        TDictionary taken(std::move(other));
        FEntries.swap(taken.FEntries);
        FCells.swap(taken.FCells);
        FSpareKeys.swap(taken.FSpareKeys);
        std::swap(FCount, taken.FCount);
        return *this;
    }
    ~TDictionary() = default;

    Integer Count() const { return static_cast<Integer>(FCount); }
    bool IsEmpty() const { return FCount == 0; }
    bool ContainsKey(View key) const { return FindCell(key) != NoCell; }

    // Address of the value until the next addition; nil when the key is not there.
    V* Find(View key) { return const_cast<V*>(std::as_const(*this).Find(key)); }
    const V* Find(View key) const {
        const std::size_t cell = FindCell(key);
        return cell == NoCell ? nullptr : &FEntries[FCells[cell].Entry].Value;
    }
    // Writes `value` only when the key is there.
    bool TryGetValue(View key, V& value) const {
        const V* found = Find(key);
        if (found != nullptr) value = *found;
        return found != nullptr;
    }

    // One step ahead of a look-up of the key with that hash, by its traits; see TFetchStep.
    void Fetch(TFetchStep step, std::uint64_t keyHash) const {
        if (FCount < FarTable) return;
        const std::uint32_t hash = Shorten(keyHash);
        const TCell& cell = FCells[hash & (FCells.size() - 1)];
        if (step == TFetchStep::Cell) return FetchSoon(&cell);
        if (cell.Hash != hash || cell.Entry == Empty) return;
        const TEntry& entry = FEntries[cell.Entry];
        if (step == TFetchStep::Entry) return FetchSoon(&entry);
        if constexpr (std::is_same_v<K, String>) FetchSoon(entry.Key.data());
    }

    // Adds a key that is not there yet; with a known key it changes nothing and answers false.
    bool Add(View key, V value) {
        const std::uint32_t hash = HashOf(key);
        if (FindCell(key, hash) != NoCell) return false;
        Append(key, std::move(value), hash);
        return true;
    }
    void AddOrSetValue(View key, V value) {
        const std::uint32_t hash = HashOf(key);
        const std::size_t cell = FindCell(key, hash);
        if (cell == NoCell) {
            Append(key, std::move(value), hash);
        } else {
            using std::swap;
            swap(FEntries[FCells[cell].Entry].Value, value);
        }
    }
    // The value under the key, made by default when the key is new.
    V& Obtain(View key) {
        const std::uint32_t hash = HashOf(key);
        const std::size_t cell = FindCell(key, hash);
        if (cell == NoCell) return Append(key, V{}, hash);
        return FEntries[FCells[cell].Entry].Value;
    }

    bool Remove(View key) {
        const std::size_t cell = FindCell(key);
        if (cell == NoCell) return false;
        Release(cell);
        return true;
    }
    // Removes the key and hands its value over; a default value when the key is not there.
    V Extract(View key) {
        const std::size_t cell = FindCell(key);
        return cell == NoCell ? V{} : Release(cell);
    }
    // The dictionary is empty before the first value dies.
    void Clear() {
        FCount = 0;
        std::fill(FCells.begin(), FCells.end(), TCell{});
        if constexpr (std::is_trivially_destructible_v<V>) {
            FEntries.clear();
        } else {
            std::vector<TEntry> dying;
            dying.swap(FEntries);
        }
    }
    // Clears and keeps the memory, also that of the keys, for the next entries: a dictionary that
    // is filled again and again allocates nothing once it has met its sizes. Costs what it held,
    // not what it once held.
    void Recycle() {
        for (std::size_t entry = FEntries.size(); entry-- > 0;) {
            if (FEntries[entry].Hash == Dead) continue;
            std::size_t cell = FEntries[entry].Hash & (FCells.size() - 1);
            while (FCells[cell].Entry != entry) cell = Next(cell);
            FCells[cell] = TCell{};
            FSpareKeys.push_back(std::move(FEntries[entry].Key));
        }
        FCount = 0;
        FEntries.clear();
    }
    void Reserve(Integer count) {
        FEntries.reserve(static_cast<std::size_t>(count));
        std::size_t cells = FirstCells;
        while (IsCrowded(static_cast<std::size_t>(count), cells)) cells *= 2;
        if (cells > FCells.size()) RebuildCells(cells);
    }

    // A copy of the keys in order: what a loop walks that calls out to others.
    TList<K> Keys() const {
        TList<K> keys;
        keys.Reserve(Count());
        for (const auto& item : *this) keys.Add(item.Key);
        return keys;
    }

    auto begin() { return TIterator<false>(this, 0); }
    auto end() { return TIterator<false>(this, FEntries.size()); }
    auto begin() const { return TIterator<true>(this, 0); }
    auto end() const { return TIterator<true>(this, FEntries.size()); }

private:
    static constexpr std::size_t NoCell = static_cast<std::size_t>(-1);

    static std::uint32_t HashOf(View key) { return Shorten(Traits::Hash(key)); }
    static std::uint32_t Shorten(std::uint64_t keyHash) {
        const auto hash = static_cast<std::uint32_t>(keyHash);
        return hash == Dead ? 1 : hash;
    }
    static bool IsCrowded(std::size_t entries, std::size_t cells) {
        return entries * 4 > cells * 3;
    }
    std::size_t Next(std::size_t cell) const { return (cell + 1) & (FCells.size() - 1); }

    std::size_t FindCell(View key) const {
        return FCount == 0 ? NoCell : FindCell(key, HashOf(key));
    }
    std::size_t FindCell(View key, std::uint32_t hash) const {
        if (FCells.empty()) return NoCell;
        for (std::size_t cell = hash & (FCells.size() - 1);; cell = Next(cell)) {
            const TCell& probe = FCells[cell];
            if (probe.Entry == Empty) return NoCell;
            if (probe.Hash == hash && Traits::Same(FEntries[probe.Entry].Key, key)) return cell;
        }
    }

    V& Append(View key, V&& value, std::uint32_t hash) {
        K stored = NewKey(key); // the view may lie inside an entry that moves below
        if (FEntries.size() > FirstCells && FEntries.size() > 2 * FCount) Compact();
        if (FCells.empty() || IsCrowded(FCount + 1, FCells.size())) {
            RebuildCells(FCells.empty() ? FirstCells : FCells.size() * 2);
        }
        FEntries.push_back(TEntry{std::move(stored), std::move(value), hash});
        Place(hash, static_cast<std::uint32_t>(FEntries.size() - 1));
        ++FCount;
        return FEntries.back().Value;
    }
    K NewKey(View key) {
        if (FSpareKeys.empty()) return K(key);
        K stored = std::move(FSpareKeys.back());
        FSpareKeys.pop_back();
        stored = key;
        return stored;
    }
    void Place(std::uint32_t hash, std::uint32_t entry) {
        std::size_t cell = hash & (FCells.size() - 1);
        while (FCells[cell].Entry != Empty) cell = Next(cell);
        FCells[cell] = TCell{hash, entry};
    }
    void RebuildCells(std::size_t cells) {
        FCells.assign(cells, TCell{});
        for (std::size_t entry = 0; entry < FEntries.size(); ++entry) {
            if (FEntries[entry].Hash != Dead) {
                Place(FEntries[entry].Hash, static_cast<std::uint32_t>(entry));
            }
        }
    }
    void Compact() {
        std::erase_if(FEntries, [](const TEntry& entry) { return entry.Hash == Dead; });
        RebuildCells(FCells.size());
    }

    V Release(std::size_t cell) {
        TEntry& entry = FEntries[FCells[cell].Entry];
        V value = std::move(entry.Value);
        entry = TEntry{};
        --FCount;
        CloseGap(cell);
        return value;
    }
    // Pulls later cells of the same run back, so that look-ups never cross a hole.
    void CloseGap(std::size_t hole) {
        const std::size_t mask = FCells.size() - 1;
        for (std::size_t cell = Next(hole); FCells[cell].Entry != Empty; cell = Next(cell)) {
            const std::size_t home = FCells[cell].Hash & mask;
            if (((cell - home) & mask) >= ((cell - hole) & mask)) {
                FCells[hole] = FCells[cell];
                hole = cell;
            }
        }
        FCells[hole] = TCell{};
    }

    std::vector<TEntry> FEntries;
    std::vector<TCell> FCells; // a power of two of them
    std::vector<K> FSpareKeys; // what Recycle kept
    std::size_t FCount = 0;
};

} // namespace quorin
