#include "platform/export/ViewTables.h"

#include "platform/widgets/ExportLinks.h"

namespace quorin {

namespace {

// By the place on the screen, which in a banded grid is not that among all columns.
template <class Column, class View>
TList<Column*> VisibleColumns(const View& view) {
    TList<Column*> columns;
    for (Integer index = 0; index < view.GetColumnCount(); ++index) {
        Column* column = view.GetColumn(index);
        if (column->GetVisible()) columns.Add(column);
    }
    columns.Sort([](const Column* left, const Column* right) {
        return left->VisibleIndex() < right->VisibleIndex();
    });
    return columns;
}

} // namespace

TGridExportTable::TGridExportTable(TcxGrid& grid, const TViewTableOptions& options)
    : FView(grid.ActiveView()), FHasNumbers(options.HasNumbers) {
    if (FView == nullptr) return;
    FColumns = VisibleColumns<TcxGridColumn>(*FView);
    const Integer focused = FView->FocusedRow();
    const Integer rows = FView->RowCount();
    for (Integer row = 0; row < rows; ++row) {
        if (options.SaveAll || row == focused) FRecords.Add(FView->RecordIndex(row));
    }
}

TTreeExportTable::TTreeExportTable(TcxVirtualTreeList& tree, const TViewTableOptions& options)
    : FTree(tree), FColumns(VisibleColumns<TcxTreeListColumn>(tree)),
      FHasNumbers(options.HasNumbers) {
    if (!options.SaveAll) {
        const TcxTreeRow focused = tree.Row(tree.FocusedRow());
        if (focused.Node != nullptr) FRows.Add(focused);
    } else if (options.Expand) {
        FRows = tree.AllRows();
    } else {
        for (Integer row = 0; row < tree.RowCount(); ++row) FRows.Add(tree.Row(row));
    }
    FForgets = tree.Forgets();
}

void TTreeExportTable::GetCellText(Integer row, Integer column, String& text) {
    if (FTree.Forgets() != FForgets) {
        throw EExportError(TExportFault::CannotWrite, "The view has changed while it was saved.");
    }
    FTree.GetNodeText(FRows[row].Node, *FColumns[column], text);
}

} // namespace quorin
