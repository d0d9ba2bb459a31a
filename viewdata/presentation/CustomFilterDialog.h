#pragma once

#include "platform/widgets/GridTableView.h"
#include "viewdata/services/DialogRecords.h"

namespace quorin {

// Columns of these types hold a date or a time of day alone; a form sets them, and the filter
// dialog tells them from a date with its time.
class TZTDateValueType : public TcxDateTimeValueType {
    QUORIN_CLASS(TZTDateValueType, TcxDateTimeValueType)
};
class TZTTimeValueType : public TcxDateTimeValueType {
    QUORIN_CLASS(TZTTimeValueType, TcxDateTimeValueType)
};

// Gives a grid column a filter of one text and one operator: asks the application, with the filter
// that the column has, and puts the answer into the grid's criteria. A cancelled dialog, and an
// answer equal to the present filter, change nothing; nor does one that comes after another dialog
// has begun inside. An emptied text takes the filter away. An unreadable number counts as 0.0.
class TGridCustomFilterRecord : public TComponent {
    QUORIN_CLASS(TGridCustomFilterRecord, TComponent)

    explicit TGridCustomFilterRecord(TComponent* AOwner = nullptr) : TComponent(AOwner) {}
    ~TGridCustomFilterRecord() override { SetViews(nullptr, nullptr); }

    // Opens no dialog for a column whose filter has an operator that the dialog does not know.
    void ExecuteCustomFilter(TcxGridTableView& Grid, TcxGridColumn& Column);

private:
    void SetViews(TcxGridTableView* grid, TcxGridColumn* column);
    void ViewFreed(TObject*);
    void ShowCustomFilterView();
    // The present filter as the dialog shows it; False where it can't.
    Boolean Read(TCustomFilterRecord& record);
    TList<TcxFilterCriteriaItem*> GetFilterCriteriaItems();
    void Write(const TCustomFilterRecord& record);
    void AddTexts(const TCustomFilterRecord& record, TcxFilterOperatorKind kind);
    Boolean AddRange(const TCustomFilterRecord& record, TcxFilterOperatorKind kind);
    void AddNumber(const TCustomFilterRecord& record, TcxFilterOperatorKind kind);

    std::uint32_t FDialogs = 0;        // begun
    TcxGridTableView* FGrid = nullptr; // not owned
    TcxGridColumn* FColumn = nullptr;  // the grid's
};

} // namespace quorin
