#pragma once

#include "platform/widgets/DataBinding.h"
#include "platform/widgets/DataController.h"
#include "platform/widgets/GridFindPanel.h"
#include "platform/widgets/GridRows.h"
#include "platform/widgets/ViewColumn.h"

namespace quorin {

class TcxGridTableView;

// What a grid shows per record: a column, for the data side.
class TcxCustomGridTableItem : public TcxViewColumn {
    QUORIN_CLASS(TcxCustomGridTableItem, TcxViewColumn)

    TcxCustomGridTableItem(TComponent* owner, TcxViewColumns& columns,
                           TcxDataFilterCriteria& filter)
        : TcxViewColumn(owner, columns), FDataBinding(*this, filter) {}
    ~TcxCustomGridTableItem() override;

    Integer GetTag() const { return Tag(); }
    String GetCaption() const { return Caption(); }
    TcxGridItemDataBinding& DataBinding() { return FDataBinding; }

private:
    TcxGridItemDataBinding FDataBinding;
};

class TcxGridColumn : public TcxCustomGridTableItem {
    QUORIN_CLASS(TcxGridColumn, TcxCustomGridTableItem)

    using TcxCustomGridTableItem::TcxCustomGridTableItem;
};

// Supplies the text of a cell: the record's index in the source, the column, the text to replace.
using TcxGetGridTextEvent = TEvent<void(Integer, TcxCustomGridTableItem&, String&)>;

inline constexpr Integer NoRow = -1;

// A grid without pixels: columns, rows in view order, scroll and focus. Rows are numbered from 0
// as they stand on the screen. Looking at rows fetches what has become stale; telling of a change
// fetches nothing. Supported: moving, hiding and freeing columns; sorting by several columns,
// filtering and finding, which move only the rows that change; scrolling; a focused row, which
// stays with its record. Not supported: editing, grouping, a selection of several rows.
class TcxGridTableView : public TComponent {
    QUORIN_CLASS(TcxGridTableView, TComponent)

    explicit TcxGridTableView(TComponent* owner = nullptr);

    TcxCustomDataController& DataController() { return FController; }
    // The source is not owned; see TcxCustomDataController.
    TcxCustomDataSource* CustomDataSource() const { return FController.CustomDataSource(); }
    void SetCustomDataSource(TcxCustomDataSource* source) {
        FController.SetCustomDataSource(source);
    }

    // A new column behind the others; the view owns it.
    virtual TcxGridColumn& AddColumn(Integer tag, StringView caption = {});
    Integer GetColumnCount() const { return FColumns.Count(); }
    // Nil outside.
    TcxGridColumn* GetColumn(Integer index) const {
        return static_cast<TcxGridColumn*>(FColumns.Get(index)); // AddColumn makes no others
    }

    // The columns that sort, in the sort sequence; nil outside.
    Integer GetSortedItemCount() const { return FColumns.Sorted().Count(); }
    TcxGridColumn* GetSortedItem(Integer index) const;
    // No column sorts afterwards.
    void ClearSorting() { FColumns.ClearSorting(); }
    TcxDataFilterCriteria& Filter() { return FRows.Filter(); }
    TcxGridFindPanel& FindPanel() { return FFindPanel; }
    // One repaint at most for all that is done between the two.
    void BeginUpdate() { FController.BeginUpdate(); }
    void EndUpdate() { FController.EndUpdate(); }

    Integer RowCount();
    // Index of the row's record in the source, and the row that shows a record; NoRow outside and
    // for a record that is filtered out.
    Integer RecordIndex(Integer row);
    Integer RowOfRecord(Integer record);
    // Raw value of a cell; null outside and without a source.
    Variant Value(Integer row, const TcxCustomGridTableItem& column);
    // The text that the user reads there: what the form supplies, and without a form the value as
    // text. Empty outside.
    void GetCellText(Integer row, TcxCustomGridTableItem& column, String& text);
    // The same for a record of the source, shown or not.
    void GetRecordText(Integer record, TcxCustomGridTableItem& column, String& text);
    String CellText(Integer row, TcxCustomGridTableItem& column);
    void SetOnGetCellText(const TcxGetGridTextEvent& event) { FOnGetCellText = event; }

    // Keeps sorted and filtered rows where they are while their values change, for as long as a
    // person points at them. Records that come or go, and another sort or filter, still show.
    void HoldOrder(bool held) { FRows.HoldOrder(held); }
    bool IsOrderHeld() const { return FRows.IsOrderHeld(); }
    // How many rows at least wait to move, come or go until the order is let go.
    Integer PendingMoves() { return FRows.PendingMoves(); }

    // First row on screen, held inside the rows that there are.
    Integer TopRow();
    void SetTopRow(Integer row);
    // How many rows fit on the screen; the skin knows. At least 1.
    Integer VisibleRowCapacity() const { return FCapacity; }
    void SetVisibleRowCapacity(Integer rows);
    // How many rows are on screen now, from TopRow on.
    Integer VisibleRowCount();

    // NoRow while none has the focus. A row outside takes the focus away; one off screen scrolls
    // into view. When its record goes, the row that takes its place has the focus.
    Integer FocusedRow();
    void SetFocusedRow(Integer row);

    // For the skin, once per frame.
    bool TakeRepaint() { return FController.TakeRepaint(); }

protected:
    TcxViewColumns& Columns() { return FColumns; }

private:
    Integer LastTopRow();
    void Forget(TObject*);

    TcxCustomDataController FController;
    TcxViewColumns FColumns{FController};
    TcxGridRows FRows{FController, FColumns};
    TcxGridFindPanel FFindPanel{*this, FRows};
    TcxGetGridTextEvent FOnGetCellText;
    Integer FTopRow = 0;
    Integer FCapacity = 1;
    Integer FFocusedRow = NoRow;
    Integer FFocusedRecord = NoRow;
};

} // namespace quorin
