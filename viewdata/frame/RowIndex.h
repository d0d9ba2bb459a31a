#pragma once

#include "platform/rtl/Prefetch.h"
#include "platform/rtl/TList.h"

namespace quorin {

// Finds the row of a symbol in a list of symbols that mostly grows at its end. Every answer is
// checked against the list, so that it is right or there is none; rows that have been added since
// are taken in by the next look-up.
class TRowIndex {
public:
    // -1 where the symbol is not found. The list must be the same one from call to call.
    Integer Find(const TList<String>& list, StringView symbol);
    // One step ahead of Find for a symbol with that hash; see TFetchStep.
    void Fetch(TFetchStep step, const TList<String>& list, std::uint64_t symbolHash) const;
    // Rows have been moved or taken out. They are looked through again at the next look-up.
    void Clear();

private:
    static constexpr Integer NoRow = -1;

    struct TCell {
        std::uint32_t Hash = 0;
        Integer Row = NoRow;
    };

    Integer CellOf(std::uint64_t hash) const {
        return static_cast<Integer>(hash & static_cast<std::uint64_t>(FCells.Count() - 1));
    }
    Integer Next(Integer cell) const { return (cell + 1) & (FCells.Count() - 1); }
    void TakeIn(const TList<String>& list);
    void Place(const TList<String>& list, Integer row);

    TList<TCell> FCells; // rows by the hash of their symbol; a power of two of them
    Integer FRows = 0;   // of the list, that are in
};

} // namespace quorin
