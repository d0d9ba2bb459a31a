#include "viewdata/frame/RowIndex.h"

#include "platform/rtl/Hash.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer FirstCells = 16;
constexpr Integer CellsPerRow = 2; // at least

Integer CellOf(StringView symbol, Integer cells) {
    return static_cast<Integer>(HashText(symbol) & static_cast<std::uint64_t>(cells - 1));
}

} // namespace

Integer TRowIndex::Find(const TList<String>& list, StringView symbol) {
    if (FRows > list.Count()) Clear();
    if (FRows < list.Count()) TakeIn(list);
    if (FRows == 0) return NoRow;
    const Integer mask = FCells.Count() - 1;
    for (Integer cell = CellOf(symbol, FCells.Count()); FCells[cell] != NoRow;
         cell = (cell + 1) & mask) {
        if (list[FCells[cell]] == symbol) return FCells[cell];
    }
    return NoRow;
}

void TRowIndex::Clear() {
    std::fill(FCells.begin(), FCells.end(), NoRow);
    FRows = 0;
}

void TRowIndex::TakeIn(const TList<String>& list) {
    Integer cells = std::max(FCells.Count(), FirstCells);
    while (cells < list.Count() * CellsPerRow) cells *= 2;
    if (cells != FCells.Count()) {
        FCells = {};
        FCells.Reserve(cells);
        while (FCells.Count() < cells) FCells.Add(NoRow);
        FRows = 0;
    }
    for (; FRows < list.Count(); ++FRows) Place(list, FRows);
}

void TRowIndex::Place(const TList<String>& list, Integer row) {
    const Integer mask = FCells.Count() - 1;
    Integer cell = CellOf(list[row], FCells.Count());
    while (FCells[cell] != NoRow) cell = (cell + 1) & mask;
    FCells[cell] = row;
}

} // namespace quorin
