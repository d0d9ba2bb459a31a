#include "terminal/desktop/PaneLayout.h"

#include "terminal/desktop/QtText.h"
#include "viewdata/editors/EditorManager.h"

namespace quorin {

namespace {

const QString ChoiceKey = QStringLiteral(".choice");
const QString GroupKey = QStringLiteral(".group");
const QString ColumnsKey = QStringLiteral(".columns");
const QString SortKey = QStringLiteral(".sort");

} // namespace

void StorePane(TPane& pane, const QString& code, TWorkspace& workspace) {
    workspace.Set(code + ChoiceKey, ToQt(pane.Choice()));
    workspace.Set(code + GroupKey, QString::number(pane.Group()));
    if (pane.Shown() == nullptr) return;
    TEditorManager& editors = *TEditorManager::GetInstance();
    const TFormView view = pane.Shown()->FormView();
    String columns, sorting;
    if (view.Grid != nullptr) {
        columns = editors.GetGridColumnLayout(*view.Grid->ActiveView(), view.DefaultColumns);
        sorting = editors.GetGridSortLayout(*view.Grid->ActiveView());
    } else {
        columns = editors.GetTreeColumnLayout(*view.Tree, view.DefaultColumns);
        sorting = editors.GetTreeSortLayout(*view.Tree);
    }
    workspace.Set(code + ColumnsKey, ToQt(columns));
    workspace.Set(code + SortKey, ToQt(sorting));
}

void RestorePane(TPane& pane, const QString& code, const TWorkspace& workspace) {
    const String choice = FromQt(workspace.Value(code + ChoiceKey));
    if (!choice.empty()) pane.SetChoice(choice);
    const String columns = FromQt(workspace.Value(code + ColumnsKey));
    const String sorting = FromQt(workspace.Value(code + SortKey));
    if (pane.Shown() != nullptr && !columns.empty()) {
        TEditorManager& editors = *TEditorManager::GetInstance();
        const TFormView view = pane.Shown()->FormView();
        if (view.Grid != nullptr) {
            TcxGridTableView& grid = *view.Grid->ActiveView();
            editors.SetGridColumnLayout(grid, columns, view.DefaultColumns);
            editors.SetGridSortLayout(grid, sorting);
        } else {
            editors.SetTreeColumnLayout(*view.Tree, columns, view.DefaultColumns);
            editors.SetTreeSortLayout(*view.Tree, sorting);
        }
    }
    bool isNumber = false;
    const Integer group = workspace.Value(code + GroupKey).toInt(&isNumber);
    if (isNumber) pane.SetGroup(group);
}

} // namespace quorin
