#pragma once

#include "platform/widgets/DataController.h"
#include "platform/widgets/FilterCriteria.h"
#include "platform/widgets/RowOrder.h"
#include "platform/widgets/ViewColumn.h"

namespace quorin {

// Which record of the source stands in which row of a grid: the columns' sort and the filter make
// the order, and what changes keeps it. Without either, rows are records. Works when somebody
// looks, not when something is told.
class TcxGridRows : private TcxRowSource, private TcxFilterValues {
public:
    TcxGridRows(TcxCustomDataController& controller, TcxViewColumns& columns);

    TcxDataFilterCriteria& Filter() { return FFilter; }
    // Further picks what passes the filter, by records; nil takes all of it.
    void SetOnFind(const TEvent<Boolean(Integer)>& event);

    Integer Count();
    // Both -1 outside, and for a record that is not shown.
    Integer RecordAt(Integer row) {
        return FIsBuilt && FIsPlain ? PlainRecordAt(row) : EnsuredRecordAt(row);
    }
    Integer RowOf(Integer record);

    // While the order is held, rows stay where they are though their values change; records that
    // come or go, and another sort or filter, still make a new one.
    void HoldOrder(bool held);
    bool IsOrderHeld() const { return FIsHeld; }
    // How many rows wait to move, come or go; none while the order is not held.
    Integer PendingMoves();

    // Values may be others; rows that differ move.
    void Touch() { FIsStale = true; }

private:
    void OrderChanged(TObject*);
    void VisibleColumnsChanged(TObject*);
    void MoveChanged();
    void KeepChanged();
    void Ensure();
    Integer EnsuredRecordAt(Integer row);
    Integer PlainRecordAt(Integer row) {
        return row >= 0 && row < FController.RecordCount() ? row : -1;
    }
    void BuildOrder(Integer records);
    Variant Read(Integer record, const TcxViewColumn& column);
    bool Passes(Integer record) override;
    Variant SortValue(Integer record, Integer column) override;
    Variant FilterValue(TObject* itemLink) override;

    TcxCustomDataController& FController;
    TcxViewColumns& FColumns;
    TcxDataFilterCriteria FFilter;
    TEvent<Boolean(Integer)> FOnFind;
    TcxRowOrder FOrder;
    TList<TcxViewColumn*> FSorted;
    Integer FRecords = 0;  // of the order
    Integer FFiltered = 0; // the record that the filter is looking at
    bool FIsBuilt = false;
    TList<Integer> FChanged;       // reused from change to change
    std::vector<Integer> FWaiting; // records whose change waits, by number, each once
    bool FAllWait = false;         // every record counts as one that waits
    bool FIsHeld = false;
    bool FIsPlain = true; // rows are records
    bool FIsStale = false;
    bool FIsReading = false; // the order is being made
};

} // namespace quorin
