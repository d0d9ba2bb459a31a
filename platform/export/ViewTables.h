#pragma once

#include "platform/export/ExportTable.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/TreeListView.h"

namespace quorin {

// Which rows of a view, and how they are stored.
struct TViewTableOptions {
    bool Expand = true;     // closed nodes as open ones
    bool SaveAll = true;    // else the focused row alone
    bool HasNumbers = true; // else workbooks store text alone
};

// A grid as it stands when the table is made: the visible columns as they stand on the screen, the
// records of its rows in view order. A record that goes meanwhile is left empty. The grid must live
// longer; without an active view there are neither columns nor rows.
class TGridExportTable : public TExportTable {
public:
    TGridExportTable(TcxGrid& grid, const TViewTableOptions& options);

    Integer ColumnCount() override { return FColumns.Count(); }
    Integer RowCount() override { return FRecords.Count(); }
    void GetCaption(Integer column, String& text) override { text = FColumns[column]->Caption(); }
    void GetCellText(Integer row, Integer column, String& text) override {
        FView->GetRecordText(FRecords[row], *FColumns[column], text);
    }
    bool HasNumbers() const override { return FHasNumbers; }

private:
    TcxGridTableView* FView;
    TList<TcxGridColumn*> FColumns;
    TList<Integer> FRecords;
    bool FHasNumbers;
};

// The same for a tree list. Nodes are gone with any change of the tree: a cell that is asked for
// after one raises EExportError.
class TTreeExportTable : public TExportTable {
public:
    TTreeExportTable(TcxVirtualTreeList& tree, const TViewTableOptions& options);

    Integer ColumnCount() override { return FColumns.Count(); }
    Integer RowCount() override { return FRows.Count(); }
    void GetCaption(Integer column, String& text) override { text = FColumns[column]->Caption(); }
    void GetCellText(Integer row, Integer column, String& text) override;
    Integer Depth(Integer row) override { return FRows[row].Depth; }
    bool HasNumbers() const override { return FHasNumbers; }

private:
    TcxVirtualTreeList& FTree;
    TList<TcxTreeListColumn*> FColumns;
    TList<TcxTreeRow> FRows;
    Integer FForgets;
    bool FHasNumbers;
};

} // namespace quorin
