#include "viewdata/frame/RowIndex.h"

#include "platform/rtl/Hash.h"

namespace quorin {

Integer TRowIndex::Find(const TList<String>& list, StringView symbol) {
    if (FRows.Count() > list.Count()) Clear();
    if (FRows.Count() < list.Count()) FRows.Reserve(list.Count());
    for (Integer row = FRows.Count(); row < list.Count(); ++row)
        FRows.Add(HashText(list[row]), row);
    return FRows.Find(HashText(symbol), [&](Integer row) { return list[row] == symbol; });
}

void TRowIndex::Fetch(TFetchStep step, const TList<String>& list, std::uint64_t symbolHash) const {
    if (step == TFetchStep::Cell) return FRows.FetchCell(symbolHash);
    const Integer row = FRows.Guess(symbolHash);
    if (!list.Has(row)) return;
    const String& symbol = list[row];
    FetchSoon(step == TFetchStep::Entry ? static_cast<const void*>(&symbol) : symbol.data());
}

void TRowIndex::Clear() {
    FRows.Clear();
}

} // namespace quorin
