#pragma once

#include "platform/widgets/Grid.h"
#include "viewdata/frame/GridDataSource.h"

#include <span>
#include <vector>

namespace quorin {

// One column as a control describes it: see TColumnInfo::AddColumn.
struct TColumnEntry {
    Integer Attribute;
    StringView Caption = {}; // resource key
    Integer Width = 0;       // pixels
    StringView Key = {};
    Boolean IsQuantity = false;
};

// Owns the columns that a control answers from GetColList.
class TColumnSet {
public:
    explicit TColumnSet(std::span<const TColumnEntry> columns);
    const TColumnList* List() const { return &FList; }

private:
    std::vector<std::unique_ptr<TColumnInfo>> FColumns;
    TColumnList FList;
};

// A grid with its source and control in one: a column for each of the control's, with captions in
// the language in force when it is made, and texts that the control supplies. For programs that
// need no form around their grid.
class TBoundGrid : public TObject {
    QUORIN_CLASS(TBoundGrid, TObject)

    // Owns the control, which must be complete and not nil. `customColumnTag` is the table of the
    // captions of its custom columns.
    explicit TBoundGrid(std::unique_ptr<TBaseDataControl> control, StringView customColumnTag = {});
    ~TBoundGrid() override;

    TcxGridTableView& View() { return *FView; }
    TcxGrid& Grid() { return *FGrid; }
    // The records of the rows on screen, for the control's ViewRecordChanged.
    std::vector<Integer> VisibleRecords();
    // The texts of a row, cell by cell as its columns stand; empty texts outside.
    std::vector<String> RowTexts(Integer row);
    // The same as one line: each cell at the right end of `width` characters, or longer.
    String RowLine(Integer row, Integer width);

private:
    void GetCellText(Integer record, TcxCustomGridTableItem& column, String& text);

    TBaseDataControl* FControl; // the source's
    TCustomGridDataSource FSource;
    std::unique_ptr<TcxGridTableView> FView;
    std::unique_ptr<TcxGrid> FGrid;
};

} // namespace quorin
