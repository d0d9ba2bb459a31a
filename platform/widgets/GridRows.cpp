#include "platform/widgets/GridRows.h"

#include "platform/rtl/ScopedValue.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quorin {

TcxGridRows::TcxGridRows(TcxCustomDataController& controller, TcxViewColumns& columns)
    : FController(controller), FColumns(columns) {
    FColumns.SetOnSortChanged(MakeEvent<&TcxGridRows::OrderChanged>(this));
    FColumns.SetOnVisibleChanged(MakeEvent<&TcxGridRows::VisibleColumnsChanged>(this));
    FFilter.SetOnApplied(MakeEvent<&TcxGridRows::OrderChanged>(this));
}

void TcxGridRows::SetOnFind(const TEvent<Boolean(Integer)>& event) {
    FOnFind = event;
    OrderChanged(nullptr);
}

// Hidden columns are not looked through.
void TcxGridRows::VisibleColumnsChanged(TObject*) {
    if (FOnFind) OrderChanged(nullptr);
}

void TcxGridRows::OrderChanged(TObject*) {
    FIsBuilt = false;
    FController.InvalidatePaint();
}

// A value that is read may tell of the next change, so the marks go first; and somebody may look at
// the rows inside, who sees them as far as they are made.
void TcxGridRows::Ensure() {
    if (FIsReading) return;
    const TScopedValue<bool> reading(FIsReading, true);
    const Integer records = FController.RecordCount();
    const bool isStale = std::exchange(FIsStale, false);
    if (!FIsBuilt || (!FIsPlain && records != FRecords)) {
        FIsBuilt = true;
        BuildOrder(records);
    } else if (isStale && !FIsPlain) {
        FController.FollowRecords();
        FAllWait = FIsHeld;
        if (FIsHeld) return;
        FWaiting.clear();
        FOrder.UpdateAll(*this);
    } else if (FController.HasChangedRecords() || !(FIsHeld || FWaiting.empty())) {
        KeepChanged();
        if (!FIsHeld) MoveChanged();
    }
}

void TcxGridRows::HoldOrder(bool held) {
    if (held == FIsHeld) return;
    if (held) Ensure(); // what has changed until now still moves
    FIsHeld = held;
    if (held) return;
    FIsStale |= FAllWait;
    FController.InvalidatePaint();
}

void TcxGridRows::KeepChanged() {
    TBorrowed<TList<Integer>> changed(FChanged);
    FController.TakeChangedRecords(*changed);
    FWaiting.insert(FWaiting.end(), (*changed).begin(), (*changed).end());
    std::sort(FWaiting.begin(), FWaiting.end());
    FWaiting.erase(std::unique(FWaiting.begin(), FWaiting.end()), FWaiting.end());
}

Integer TcxGridRows::PendingMoves() {
    Ensure();
    if (!FIsHeld || FIsPlain || FIsReading) return 0;
    const TScopedValue<bool> reading(FIsReading, true);
    if (FAllWait) {
        FWaiting.resize(static_cast<std::size_t>(FRecords));
        std::iota(FWaiting.begin(), FWaiting.end(), 0);
    }
    return FOrder.CountMoves(FWaiting, *this);
}

void TcxGridRows::MoveChanged() {
    TBorrowed<std::vector<Integer>> waiting(FWaiting);
    FOrder.Update(*waiting, *this);
    (*waiting).clear();
}

void TcxGridRows::BuildOrder(Integer records) {
    FSorted = FColumns.Sorted();
    FIsPlain = FSorted.IsEmpty() && !FFilter.IsFiltering() && !FOnFind;
    FRecords = records;
    FAllWait = false;
    FWaiting.clear();
    FController.UnfollowRecords();
    if (!FIsPlain) FController.FollowRecords();
    std::vector<bool> descending;
    for (const TcxViewColumn* column : FSorted) {
        descending.push_back(column->GetSortOrder() == soDescending);
    }
    FOrder.Build(FIsPlain ? 0 : records, std::move(descending), *this);
}

Integer TcxGridRows::Count() {
    Ensure();
    return FIsPlain ? FController.RecordCount() : FOrder.Count();
}

Integer TcxGridRows::EnsuredRecordAt(Integer row) {
    Ensure();
    return FIsPlain ? PlainRecordAt(row) : FOrder.RecordAt(row);
}

Integer TcxGridRows::RowOf(Integer record) {
    Ensure();
    if (!FIsPlain) return FOrder.RowOf(record);
    return PlainRecordAt(record);
}

Variant TcxGridRows::Read(Integer record, const TcxViewColumn& column) {
    return FController.ValueAt(record, column.ItemIndex());
}

bool TcxGridRows::Passes(Integer record) {
    FFiltered = record;
    return FFilter.Passes(*this) && (!FOnFind || FOnFind(record));
}

Variant TcxGridRows::SortValue(Integer record, Integer column) {
    return Read(record, *FSorted[column]);
}

Variant TcxGridRows::FilterValue(TObject* itemLink) {
    return Read(FFiltered, *static_cast<TcxViewColumn*>(itemLink));
}

} // namespace quorin
