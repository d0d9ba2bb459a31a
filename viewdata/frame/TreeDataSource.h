#pragma once

#include "viewdata/frame/DataControl.h"
#include "viewdata/frame/DataControlSource.h"

#include <vector>

namespace quorin {

// Binds a tree control to a tree list, as TCustomGridDataSource binds a row list to a grid. A
// record handle is the control's node, passed through whole.
class TCustomTreeDataSource
    : public TDataControlSource<TcxTreeListCustomDataSource, TBaseTreeDataControl> {
    QUORIN_CLASS(TCustomTreeDataSource, TcxTreeListCustomDataSource)

    // Makes the control by its class, owns it and hands it the columns. A class that is no
    // TBaseTreeDataControl gives an inert source: counts are 0, handles nil, values empty text.
    TCustomTreeDataSource(const TColumnList* ColumnList, const TComponentClass& DataControl);

    // Hands the columns to the control and has an attached view fetch again. The list stays the
    // caller's.
    void SetColumnList(const TColumnList* ColumnList);

    Integer GetRecordCount() override;
    // Raw value of a cell; the column's tag reaches the control whatever it holds. Empty text
    // without a control or for an unknown item.
    Variant GetValue(TcxDataRecordHandle RecordHandle, TcxDataItemHandle ItemHandle) override;
    TcxDataRecordHandle GetRecordHandle(Integer Index) override;
    TcxDataRecordHandle GetRootRecordHandle() override;
    TcxDataRecordHandle GetParentRecordHandle(TcxDataRecordHandle Handle) override;
    Integer GetChildCount(TcxDataRecordHandle Handle) override;
    TcxDataRecordHandle GetChildRecordHandle(TcxDataRecordHandle Handle, Integer Index) override;
    Int64 GetShapeVersion() override;
    String GetRecordIdentity(TcxDataRecordHandle Handle) override;

protected:
    std::vector<Integer> FAttriuteList; // for concrete sources; not read here
};

} // namespace quorin
