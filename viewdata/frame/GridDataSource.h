#pragma once

#include "viewdata/frame/DataControl.h"
#include "viewdata/frame/DataControlSource.h"

namespace quorin {

// Binds a row-list control to a grid: turns the grid's record and item handles into row indexes
// and column tags, the control's change signal into the grid's, and repaints the grid when a
// display setting changes. A record handle is the record index in its low 32 bits. Not supported:
// writing, appending, inserting; display texts, which forms take from the control.
class TCustomGridDataSource : public TDataControlSource<TcxCustomDataSource, TBaseDataControl> {
    QUORIN_CLASS(TCustomGridDataSource, TcxCustomDataSource)

    // Makes the control by its class and owns it. Any class that is no TBaseDataControl, no class
    // included, gives an inert source: counts are 0 and values empty text.
    explicit TCustomGridDataSource(const TComponentClass& DataControl);
    // The same for a complete control that is handed over; it must not be nil.
    explicit TCustomGridDataSource(std::unique_ptr<TBaseDataControl> DataControl);

    Integer GetRecordCount() override;
    // Raw value of a cell; empty text without a control, for an unknown item and for an item with
    // a negative tag, of which the control is not asked. Makes no allocation of its own.
    Variant GetValue(TcxDataRecordHandle RecordHandle, TcxDataItemHandle ItemHandle) override;
    // Answer nil: rows come from the control alone.
    TcxDataRecordHandle AppendRecord() override;
    TcxDataRecordHandle InsertRecord(TcxDataRecordHandle RecordHandle) override;
};

} // namespace quorin
