#include "terminal/desktop/LayoutKeeper.h"

#include "viewdata/editors/EditorManager.h"

namespace quorin {

namespace {

constexpr Char PartEnd = u'\n'; // between columns and sorting
constexpr std::size_t MostSteps = 100;

} // namespace

TLayoutKeeper::TLayoutKeeper(const TFormView& view, QObject* parent)
    : QObject(parent), FView(view), FKnown(Layout()) {}

String TLayoutKeeper::Layout() const {
    TEditorManager& editors = *TEditorManager::GetInstance();
    if (FView.Grid != nullptr) {
        TcxGridTableView& grid = *FView.Grid->ActiveView();
        return editors.GetGridColumnLayout(grid, FView.DefaultColumns) + PartEnd +
               editors.GetGridSortLayout(grid);
    }
    return editors.GetTreeColumnLayout(*FView.Tree, FView.DefaultColumns) + PartEnd +
           editors.GetTreeSortLayout(*FView.Tree);
}

void TLayoutKeeper::Apply(StringView layout) {
    const auto end = layout.find(PartEnd);
    const StringView columns = layout.substr(0, end);
    const StringView sorting = end == StringView::npos ? StringView() : layout.substr(end + 1);
    TEditorManager& editors = *TEditorManager::GetInstance();
    if (FView.Grid != nullptr) {
        TcxGridTableView& grid = *FView.Grid->ActiveView();
        editors.SetGridColumnLayout(grid, columns, FView.DefaultColumns);
        editors.SetGridSortLayout(grid, sorting);
    } else {
        editors.SetTreeColumnLayout(*FView.Tree, columns, FView.DefaultColumns);
        editors.SetTreeSortLayout(*FView.Tree, sorting);
    }
    FKnown = Layout();
    emit Changed();
}

void TLayoutKeeper::Restore(StringView layout) {
    FSteps.clear();
    Apply(layout);
}

void TLayoutKeeper::Note() {
    String now = Layout();
    if (now == FKnown) return;
    if (FSteps.size() == MostSteps) FSteps.erase(FSteps.begin());
    FSteps.push_back(std::move(FKnown));
    FKnown = std::move(now);
    emit Changed();
}

bool TLayoutKeeper::Undo() {
    Note();
    if (FSteps.empty()) return false;
    const String before = std::move(FSteps.back());
    FSteps.pop_back();
    Apply(before);
    return true;
}

} // namespace quorin
