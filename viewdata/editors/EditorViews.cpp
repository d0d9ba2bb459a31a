#include "viewdata/editors/EditorManager.h"

namespace quorin {

namespace {

template <class Record>
Record& MadeOnFirstUse(std::unique_ptr<Record>& record) {
    if (record == nullptr) record = CreateComponent<Record>();
    return *record;
}

} // namespace

void TEditorManager::GridCustomColumn(TcxGridTableView& Grid, std::span<const Integer> ReservedCol,
                                      const TDataCallbackEvent& Callback) {
    MadeOnFirstUse(FGridCustomColumnRecord).ExecuteCustomColumn(Grid, ReservedCol, Callback);
}

void TEditorManager::TreeCustomColumn(TcxVirtualTreeList& Tree,
                                      std::span<const Integer> ReservedCol,
                                      const TDataCallbackEvent& Callback) {
    MadeOnFirstUse(FTreeCustomColumnRecord).ExecuteCustomColumn(Tree, ReservedCol, Callback);
}

void TEditorManager::GridCustomFilter(TcxGridTableView& Grid, TcxGridColumn& Column) {
    MadeOnFirstUse(FGridCustomFilterRecord).ExecuteCustomFilter(Grid, Column);
}

String TEditorManager::GetGridColumnLayout(TcxGridTableView& Grid,
                                           const TColumnList* DefaultColumnList) {
    return GetColumnLayout(Grid, DefaultColumnList);
}

Boolean TEditorManager::SetGridColumnLayout(TcxGridTableView& Grid, StringView Layout,
                                            const TColumnList* DefaultColumnList) {
    return SetColumnLayout(Grid, Layout, DefaultColumnList);
}

String TEditorManager::GetTreeColumnLayout(TcxVirtualTreeList& Tree,
                                           const TColumnList* DefaultColumnList) {
    return GetColumnLayout(Tree, DefaultColumnList);
}

Boolean TEditorManager::SetTreeColumnLayout(TcxVirtualTreeList& Tree, StringView Layout,
                                            const TColumnList* DefaultColumnList) {
    return SetColumnLayout(Tree, Layout, DefaultColumnList);
}

String TEditorManager::GetGridSortLayout(TcxGridTableView& Grid) {
    return GetSortLayout(Grid);
}

void TEditorManager::SetGridSortLayout(TcxGridTableView& Grid, StringView Layout) {
    SetSortLayout(Grid, Layout);
}

String TEditorManager::GetTreeSortLayout(TcxVirtualTreeList& Tree) {
    return GetSortLayout(Tree);
}

void TEditorManager::SetTreeSortLayout(TcxVirtualTreeList& Tree, StringView Layout) {
    SetSortLayout(Tree, Layout);
}

void TEditorManager::ExportTreeToCSV(TcxVirtualTreeList& Tree, StringView DefaultFileName,
                                     StringView DefaultDir) {
    ExportToCSV(Tree, DefaultFileName, DefaultDir);
}

void TEditorManager::ExportTreeToXLS(TcxVirtualTreeList& Tree, StringView DefaultFileName,
                                     StringView DefaultDir) {
    ExportToXLS(Tree, DefaultFileName, DefaultDir);
}

void TEditorManager::ExportTreeToXLSX(TcxVirtualTreeList& Tree, StringView DefaultFileName,
                                      StringView DefaultDir) {
    ExportToXLSX(Tree, DefaultFileName, DefaultDir);
}

void TEditorManager::ExportGridToCSV(TcxGrid& Grid, StringView DefaultFileName,
                                     StringView DefaultDir) {
    ExportToCSV(Grid, DefaultFileName, DefaultDir);
}

void TEditorManager::ExportGridToXLS(TcxGrid& Grid, StringView DefaultFileName,
                                     StringView DefaultDir) {
    ExportToXLS(Grid, DefaultFileName, DefaultDir);
}

void TEditorManager::ExportGridToXLSX(TcxGrid& Grid, StringView DefaultFileName,
                                      StringView DefaultDir) {
    ExportToXLSX(Grid, DefaultFileName, DefaultDir);
}

} // namespace quorin
