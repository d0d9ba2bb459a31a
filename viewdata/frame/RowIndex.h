#pragma once

#include "platform/rtl/KeyIndex.h"
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

    TKeyIndex<Integer, NoRow> FRows; // by the hash of their symbol
};

} // namespace quorin
