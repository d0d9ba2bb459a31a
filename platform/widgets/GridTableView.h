#pragma once

#include "platform/widgets/DataController.h"
#include "platform/widgets/ViewColumn.h"

#include <memory>

namespace quorin {

class TcxGridTableView;

// What a grid shows per record: a column, for the data side.
class TcxCustomGridTableItem : public TcxViewColumn {
    QUORIN_CLASS(TcxCustomGridTableItem, TcxViewColumn)

    using TcxViewColumn::TcxViewColumn;
    Integer GetTag() const { return Tag(); }
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
// fetches nothing. Supported: moving, hiding and freeing columns; scrolling; a focused row. Not
// supported: editing, grouping, a selection of several rows.
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
    TcxGridColumn& AddColumn(Integer tag, StringView caption = {});
    Integer GetColumnCount() const { return FColumns.Count(); }
    // Nil outside.
    TcxGridColumn* GetColumn(Integer index) const;

    Integer RowCount();
    // Index of the row's record in the source; NoRow outside.
    Integer RecordIndex(Integer row);
    // Raw value of a cell; null outside and without a source.
    Variant Value(Integer row, const TcxCustomGridTableItem& column);
    // The text that the user reads there: what the form supplies, and without a form the value as
    // text. Empty outside.
    void GetCellText(Integer row, TcxCustomGridTableItem& column, String& text);
    String CellText(Integer row, TcxCustomGridTableItem& column);
    void SetOnGetCellText(const TcxGetGridTextEvent& event) { FOnGetCellText = event; }

    // First row on screen, held inside the rows that there are.
    Integer TopRow();
    void SetTopRow(Integer row);
    // How many rows fit on the screen; the skin knows. At least 1.
    Integer VisibleRowCapacity() const { return FCapacity; }
    void SetVisibleRowCapacity(Integer rows);
    // How many rows are on screen now, from TopRow on.
    Integer VisibleRowCount();

    // NoRow while none has the focus. A row outside takes the focus away; one off screen scrolls
    // into view.
    Integer FocusedRow();
    void SetFocusedRow(Integer row);

    // For the skin, once per frame.
    bool TakeRepaint() { return FController.TakeRepaint(); }

private:
    Integer LastTopRow();

    TcxCustomDataController FController;
    TcxViewColumns FColumns{FController};
    TcxGetGridTextEvent FOnGetCellText;
    Integer FTopRow = 0;
    Integer FCapacity = 1;
    Integer FFocusedRow = NoRow;
};

} // namespace quorin
