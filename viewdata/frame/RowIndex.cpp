#include "viewdata/frame/RowIndex.h"

#include "platform/rtl/Hash.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer FirstCells = 16;
constexpr Integer CellsPerRow = 2; // at least

} // namespace

Integer TRowIndex::Find(const TList<String>& list, StringView symbol) {
    if (FRows > list.Count()) Clear();
    if (FRows < list.Count()) TakeIn(list);
    if (FRows == 0) return NoRow;
    const std::uint64_t hash = HashText(symbol);
    for (Integer cell = CellOf(hash); FCells[cell].Row != NoRow; cell = Next(cell)) {
        if (FCells[cell].Hash != static_cast<std::uint32_t>(hash)) continue;
        if (list[FCells[cell].Row] == symbol) return FCells[cell].Row;
    }
    return NoRow;
}

void TRowIndex::Fetch(TFetchStep step, const TList<String>& list, std::uint64_t symbolHash) const {
    if (FRows < FarTable) return;
    const TCell& cell = FCells[CellOf(symbolHash)];
    if (step == TFetchStep::Cell) return FetchSoon(&cell);
    if (!list.Has(cell.Row)) return;
    const String& symbol = list[cell.Row];
    FetchSoon(step == TFetchStep::Entry ? static_cast<const void*>(&symbol) : symbol.data());
}

void TRowIndex::Clear() {
    std::fill(FCells.begin(), FCells.end(), TCell{});
    FRows = 0;
}

void TRowIndex::TakeIn(const TList<String>& list) {
    Integer cells = std::max(FCells.Count(), FirstCells);
    while (cells < list.Count() * CellsPerRow) cells *= 2;
    if (cells != FCells.Count()) {
        FCells = {};
        FCells.Reserve(cells);
        while (FCells.Count() < cells) FCells.Add(TCell{});
        FRows = 0;
    }
    for (; FRows < list.Count(); ++FRows) Place(list, FRows);
}

void TRowIndex::Place(const TList<String>& list, Integer row) {
    const std::uint64_t hash = HashText(list[row]);
    Integer cell = CellOf(hash);
    while (FCells[cell].Row != NoRow) cell = Next(cell);
    FCells[cell] = {static_cast<std::uint32_t>(hash), row};
}

} // namespace quorin
