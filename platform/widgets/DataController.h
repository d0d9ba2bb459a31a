#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/rtl/TList.h"
#include "platform/rtl/Variant.h"

#include <utility>

namespace quorin {

// A source's own names of a record and of a column; nobody else looks inside.
using TcxDataRecordHandle = Pointer;
using TcxDataItemHandle = Pointer;

class TcxCustomDataController;
class TcxCustomDataSource;

// Ties a source to the data controller of its view; exists as long as the controller.
class TcxDataProvider : public TObject {
public:
    explicit TcxDataProvider(TcxCustomDataController& controller) : FController(controller) {}
    TcxCustomDataController& DataController() const { return FController; }

private:
    TcxCustomDataController& FController;
};

// How often a view has asked its source and been told of changes.
struct TcxFetchCounters {
    Integer Counts = 0;    // record counts asked for
    Integer Values = 0;    // cell values asked for
    Integer Changes = 0;   // DataChanged
    Integer Refreshes = 0; // Refresh
};

// The data side of a view: its columns, its source, and whether what it shows is still true. The
// view owns it. Nothing is fetched when a change is told, only when somebody looks.
class TcxCustomDataController : public TObject {
public:
    TcxCustomDataController() = default;
    // Detaches the source, which lives on.
    ~TcxCustomDataController() override;

    TcxCustomDataSource* CustomDataSource() const { return FSource; }
    // Attaches `source`, or none with nil; the one before is detached. Not owned.
    void SetCustomDataSource(TcxCustomDataSource* source);

    // The view's column of an item handle, in constant time; nil for a handle of no column.
    TComponent* GetItem(TcxDataItemHandle handle) const {
        const auto index = reinterpret_cast<std::uintptr_t>(handle);
        return index < static_cast<std::uintptr_t>(FItems.Count())
                   ? FItems[static_cast<Integer>(index)]
                   : nullptr;
    }
    Integer ItemCount() const { return FItems.Count(); }
    // Columns in the order in which they were made; each tells of itself.
    void AddItem(TComponent* item);
    void RemoveItem(TComponent* item);

    // Counts, rows and values are no longer true. What was fetched is forgotten at once, unless the
    // view follows records and the source names those that have changed.
    virtual void DataChanged();
    // Rows stay, the values are shown again.
    virtual void Refresh();

    // Number of records, asked for at the first look after a change; 0 without a source.
    Integer RecordCount() { return FIsStale ? CountRecords() : FRecordCount; }
    // Raw value of a cell; null without a source. `item` is the column's place in the order of
    // making, `record` the source's handle or its index.
    Variant Value(TcxDataRecordHandle record, Integer item);
    Variant ValueAt(Integer record, Integer item);
    // A look at what a change made untrue has not happened yet.
    bool IsStale() const { return FIsStale; }

    // For the skin, once per frame: true when something that shows has changed since the last call.
    bool TakeRepaint();
    bool NeedsRepaint() const { return FNeedsRepaint && FUpdates == 0; }
    // Something that shows has changed that the source does not know of: scroll, focus, columns.
    void InvalidatePaint() { FNeedsRepaint = true; }

    const TcxFetchCounters& Counters() const { return FCounters; }
    // Raised when what was fetched has to be forgotten; the view drops its handles.
    void SetOnForget(const TNotifyEvent& event) { FOnForget = event; }

    // For a view whose rows depend on values: while it follows records, those that a change names
    // are kept for it, and nothing is forgotten. A change that names none ends the following.
    void FollowRecords() { FFollowsRecords = true; }
    void UnfollowRecords();
    bool HasChangedRecords() const { return !FChangedRecords.IsEmpty(); }
    // Hands over what was named since the last call; some may stand twice. The memory of `records`
    // is used for the next ones.
    void TakeChangedRecords(TList<Integer>& records);

    // Between these two nothing asks for a repaint; what changed meanwhile asks once at the end.
    // They nest.
    void BeginUpdate() { ++FUpdates; }
    void EndUpdate();

private:
    void Forget();
    Integer CountRecords();
    bool KeepsChangedRecords();

    TcxCustomDataSource* FSource = nullptr;
    TcxDataProvider FProvider{*this};
    TList<TComponent*> FItems;
    TNotifyEvent FOnForget;
    TcxFetchCounters FCounters;
    TList<Integer> FChangedRecords;
    Integer FRecordCount = 0;
    Integer FUpdates = 0;
    bool FIsStale = true;
    bool FNeedsRepaint = true;
    bool FFollowsRecords = false;
};

} // namespace quorin
