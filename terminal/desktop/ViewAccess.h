#pragma once

#include "platform/widgets/TreeListView.h"

namespace quorin {

// What a table of Qt asks of a headless list, whichever it draws: rows in view order, columns with
// the hidden ones among them, the row with the focus. Holds nothing of its own.
class TViewAccess {
public:
    virtual ~TViewAccess() = default;

    virtual Integer RowCount() = 0;
    virtual Integer ColumnCount() = 0;
    // `index` must be inside.
    virtual TcxViewColumn& Column(Integer index) = 0;
    // The first of those that sort; nil without one.
    virtual TcxViewColumn* SortedColumn() = 0;
    // One repaint for both: no column sorts afterwards but this one, by this order.
    virtual void SortBy(TcxViewColumn& column, TdxSortOrder order) = 0;
    // Empty outside.
    virtual String CellText(Integer row, TcxViewColumn& column) = 0;
    // What stands for the row wherever it moves; NoRow where there is nothing such.
    virtual Integer Record(Integer row) = 0;
    // NoRow while none has the focus.
    virtual Integer FocusedRow() = 0;
    virtual void SetFocusedRow(Integer row) = 0;
    virtual bool TakeRepaint() = 0;
};

// The operations that grids and tree lists have alike.
template <class View, class ViewColumn>
class TViewAccessTo : public TViewAccess {
public:
    // `view` must live longer.
    explicit TViewAccessTo(View& view) : FView(view) {}

    Integer RowCount() override { return FView.RowCount(); }
    Integer ColumnCount() override { return FView.GetColumnCount(); }
    TcxViewColumn& Column(Integer index) override { return *FView.GetColumn(index); }
    void SortBy(TcxViewColumn& column, TdxSortOrder order) override {
        FView.BeginUpdate();
        FView.ClearSorting();
        column.SetSortOrder(order);
        FView.EndUpdate();
    }
    String CellText(Integer row, TcxViewColumn& column) override {
        return FView.CellText(row, static_cast<ViewColumn&>(column)); // the view makes no others
    }
    Integer FocusedRow() override { return FView.FocusedRow(); }
    void SetFocusedRow(Integer row) override { FView.SetFocusedRow(row); }
    bool TakeRepaint() override { return FView.TakeRepaint(); }

protected:
    View& FView;
};

class TGridAccess final : public TViewAccessTo<TcxGridTableView, TcxGridColumn> {
public:
    using TViewAccessTo::TViewAccessTo;

    TcxViewColumn* SortedColumn() override { return FView.GetSortedItem(0); }
    Integer Record(Integer row) override { return FView.RecordIndex(row); }
};

class TTreeAccess final : public TViewAccessTo<TcxVirtualTreeList, TcxTreeListColumn> {
public:
    using TViewAccessTo::TViewAccessTo;

    TcxViewColumn* SortedColumn() override { return FView.GetSortedColumn(0); }
    Integer Record(Integer) override { return NoRow; }
};

} // namespace quorin
