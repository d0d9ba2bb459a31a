#pragma once

#include "platform/rtl/Prefetch.h"
#include "platform/rtl/TList.h"

#include <cstdint>

namespace quorin {

// Finds things by a key that they keep themselves, so that a look-up reads one cell and then the
// thing. Each is in here once and stays until all go; `None` stands for no thing.
template <class T, T None>
class TKeyIndex {
public:
    Integer Count() const { return FCount; }

    // The thing of that hash that `isIt(thing)` takes; None where there is no such thing.
    template <class Predicate>
    T Find(std::uint64_t hash, Predicate isIt) const {
        if (FCount == 0) return None;
        for (Integer cell = CellOf(hash); FCells[cell].Thing != None; cell = Next(cell)) {
            if (FCells[cell].Hash != Shorten(hash)) continue;
            if (isIt(FCells[cell].Thing)) return FCells[cell].Thing;
        }
        return None;
    }
    void Add(std::uint64_t hash, T thing) {
        Reserve(++FCount);
        Place({Shorten(hash), thing});
    }
    // Keeps the memory.
    void Clear() {
        for (TCell& cell : FCells) cell = {};
        FCount = 0;
    }
    // Room for so many things.
    void Reserve(Integer count) {
        Integer cells = FCells.IsEmpty() ? FirstCells : FCells.Count();
        while (cells < count * CellsPerThing) cells *= 2;
        if (cells == FCells.Count()) return;
        const TList<TCell> before = std::move(FCells);
        FCells = {};
        FCells.Reserve(cells);
        while (FCells.Count() < cells) FCells.Add({});
        for (const TCell& cell : before) {
            if (cell.Thing != None) Place(cell);
        }
    }

    // Asks for the cell of that hash, before Find or Guess.
    void FetchCell(std::uint64_t hash) const {
        if (FCount >= FarTable) FetchSoon(&FCells[CellOf(hash)]);
    }
    // What Find will most likely look at first; None in a table that is in reach anyway.
    T Guess(std::uint64_t hash) const {
        return FCount >= FarTable ? FCells[CellOf(hash)].Thing : None;
    }

private:
    static constexpr Integer FirstCells = 16;
    static constexpr Integer CellsPerThing = 2; // at least

    struct TCell {
        std::uint32_t Hash = 0;
        T Thing = None;
    };

    static std::uint32_t Shorten(std::uint64_t hash) { return static_cast<std::uint32_t>(hash); }
    Integer CellOf(std::uint64_t hash) const {
        return static_cast<Integer>(hash & static_cast<std::uint64_t>(FCells.Count() - 1));
    }
    Integer Next(Integer cell) const { return (cell + 1) & (FCells.Count() - 1); }
    void Place(TCell placed) {
        Integer cell = CellOf(placed.Hash);
        while (FCells[cell].Thing != None) cell = Next(cell);
        FCells[cell] = placed;
    }

    TList<TCell> FCells; // a power of two of them
    Integer FCount = 0;
};

} // namespace quorin
