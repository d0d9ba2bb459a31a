#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/rtl/TList.h"
#include "platform/rtl/Variant.h"
#include "platform/widgets/DataController.h"

#include <cstdint>

namespace quorin {

// Where a view gets its rows and values from. A descendant answers counts and values; the view asks
// when it paints, not when it is told of a change. One view at a time: attaching a source to a
// second view takes it from the first. A source that dies leaves its view empty without another
// fetch, and a view that dies detaches its source.
class TcxCustomDataSource : public TObject {
    QUORIN_CLASS(TcxCustomDataSource, TObject)

    ~TcxCustomDataSource() override;

    // Number of records; asked once after each change, not per row.
    virtual Integer GetRecordCount() { return 0; }
    // The source's own name of the record at `Index`. The base uses the index itself.
    virtual TcxDataRecordHandle GetRecordHandle(Integer Index) { return HandleOfIndex(Index); }
    // The source's own name of the view's column `Index`, which the data controller turns back into
    // that column. A descendant that overrides it keeps this mapping.
    virtual TcxDataItemHandle GetItemHandle(Integer Index) { return HandleOfIndex(Index); }
    // The raw value of a cell. The base answers null.
    virtual Variant GetValue(TcxDataRecordHandle RecordHandle, TcxDataItemHandle ItemHandle);
    // The base takes no edits: it drops the value.
    virtual void SetValue(TcxDataRecordHandle RecordHandle, TcxDataItemHandle ItemHandle,
                          const Variant& Value);
    // The base removes nothing.
    virtual void DeleteRecord(TcxDataRecordHandle RecordHandle);
    // The handle of the new record; the base adds none and answers nil.
    virtual TcxDataRecordHandle AppendRecord() { return nullptr; }
    virtual TcxDataRecordHandle InsertRecord(TcxDataRecordHandle) { return nullptr; }
    // Counts, handles and values have changed: the view forgets what it holds and fetches again
    // with its next paint. Does nothing without a view.
    virtual void DataChanged();
    // Which records the change is about that DataChanged is telling of: adds their indexes to
    // `records`. False, with `records` as they were, where anything else may have changed; the base
    // answers that.
    virtual bool ChangedRecords(TList<Integer>& records);

    // The data controller of the attached view; nil without one.
    TcxCustomDataController* GetDataController() const {
        return FProvider == nullptr ? nullptr : &FProvider->DataController();
    }
    // Not nil exactly while a view is attached.
    TcxDataProvider* GetProvider() const { return FProvider; }

    static Pointer HandleOfIndex(Integer Index) {
        return reinterpret_cast<Pointer>(static_cast<std::intptr_t>(Index));
    }
    // The low 32 bits of a handle that HandleOfIndex made.
    static Integer IndexOfHandle(Pointer Handle) {
        return static_cast<Integer>(reinterpret_cast<std::intptr_t>(Handle));
    }

private:
    friend class TcxCustomDataController;
    TcxDataProvider* FProvider = nullptr;
};

// The source of a tree list. Its record handles name nodes. A tree has one of two shapes, and the
// view is told which: a flat list of all nodes with a parent each, or a root with children.
class TcxTreeListCustomDataSource : public TcxCustomDataSource {
    QUORIN_CLASS(TcxTreeListCustomDataSource, TcxCustomDataSource)

    // Node at `Index` of the flat list.
    TcxDataRecordHandle GetRecordHandle(Integer) override { return nullptr; }
    // What stands above the first level; never shown.
    virtual TcxDataRecordHandle GetRootRecordHandle() { return nullptr; }
    // Nil, the root or a node that is not in the list puts the node on the first level.
    virtual TcxDataRecordHandle GetParentRecordHandle(TcxDataRecordHandle) { return nullptr; }
    virtual Integer GetChildCount(TcxDataRecordHandle) { return 0; }
    virtual TcxDataRecordHandle GetChildRecordHandle(TcxDataRecordHandle, Integer) {
        return nullptr;
    }
    // Another number each time that nodes, their order or their parents have changed: after a
    // change that leaves it, the view keeps its rows and asks for values alone. 0, as the base
    // answers, promises nothing.
    virtual Int64 GetShapeVersion() { return 0; }
    // Tells a node from an earlier one at the same address; always the same text for one node. The
    // base tells none apart. Asked for nodes that the user has opened, closed or focused.
    virtual String GetRecordIdentity(TcxDataRecordHandle) { return String(); }
};

} // namespace quorin
