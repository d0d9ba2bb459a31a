#include "platform/widgets/GridTableView.h"

#include <algorithm>

namespace quorin {

// A view that is gone has taken its filter with it.
TcxCustomGridTableItem::~TcxCustomGridTableItem() {
    if (Columns() != nullptr) FDataBinding.GetFilter().ForgetItemLink(this);
}

TcxGridTableView::TcxGridTableView(TComponent* owner) : TComponent(owner) {
    FController.SetOnForget(MakeEvent<&TcxGridTableView::Forget>(this));
}

void TcxGridTableView::Forget(TObject*) {
    FRows.Touch();
}

TcxGridColumn& TcxGridTableView::AddColumn(Integer tag, StringView caption) {
    auto& column = CreateComponent<TcxGridColumn>(*this, FColumns, Filter());
    column.SetTag(tag);
    column.SetCaption(caption);
    return column;
}

TcxGridColumn* TcxGridTableView::GetSortedItem(Integer index) const {
    const TList<TcxViewColumn*> sorted = FColumns.Sorted();
    return sorted.Has(index) ? static_cast<TcxGridColumn*>(sorted[index]) : nullptr;
}

Integer TcxGridTableView::RowCount() {
    return FRows.Count();
}

Integer TcxGridTableView::RecordIndex(Integer row) {
    return FRows.RecordAt(row);
}

Integer TcxGridTableView::RowOfRecord(Integer record) {
    return FRows.RowOf(record);
}

Variant TcxGridTableView::Value(Integer row, const TcxCustomGridTableItem& column) {
    const Integer record = FRows.RecordAt(row);
    if (record == NoRow) return Variant();
    return FController.ValueAt(record, column.ItemIndex());
}

void TcxGridTableView::GetCellText(Integer row, TcxCustomGridTableItem& column, String& text) {
    GetRecordText(RecordIndex(row), column, text);
}

void TcxGridTableView::GetRecordText(Integer record, TcxCustomGridTableItem& column, String& text) {
    text.clear();
    if (record < 0 || record >= FController.RecordCount()) return;
    if (FOnGetCellText) {
        FOnGetCellText(record, column, text);
        return;
    }
    const Variant value = FController.ValueAt(record, column.ItemIndex());
    if (!value.IsArray()) text = value.ToText();
}

String TcxGridTableView::CellText(Integer row, TcxCustomGridTableItem& column) {
    String text;
    GetCellText(row, column, text);
    return text;
}

Integer TcxGridTableView::LastTopRow() {
    return std::max<Integer>(RowCount() - FCapacity, 0);
}

Integer TcxGridTableView::TopRow() {
    FTopRow = std::min(FTopRow, LastTopRow());
    return FTopRow;
}

void TcxGridTableView::SetTopRow(Integer row) {
    const Integer top = std::clamp<Integer>(row, 0, LastTopRow());
    if (top == FTopRow) return;
    FTopRow = top;
    FController.InvalidatePaint();
}

void TcxGridTableView::SetVisibleRowCapacity(Integer rows) {
    const Integer capacity = std::max<Integer>(rows, 1);
    if (capacity == FCapacity) return;
    FCapacity = capacity;
    FController.InvalidatePaint();
}

Integer TcxGridTableView::VisibleRowCount() {
    const Integer top = TopRow();
    return std::min(FCapacity, RowCount() - top);
}

Integer TcxGridTableView::FocusedRow() {
    if (FFocusedRow == NoRow) return NoRow;
    const Integer row = RowOfRecord(FFocusedRecord);
    FFocusedRow = row != NoRow ? row : std::min(FFocusedRow, RowCount() - 1);
    FFocusedRecord = RecordIndex(FFocusedRow);
    return FFocusedRow;
}

void TcxGridTableView::SetFocusedRow(Integer row) {
    FFocusedRecord = RecordIndex(row);
    FFocusedRow = FFocusedRecord == NoRow ? NoRow : row;
    FController.InvalidatePaint();
    if (FFocusedRow == NoRow) return;
    const Integer top = TopRow();
    SetTopRow(std::clamp<Integer>(top, FFocusedRow - FCapacity + 1, FFocusedRow));
}

} // namespace quorin
