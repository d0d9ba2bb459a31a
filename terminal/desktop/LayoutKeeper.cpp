#include "terminal/desktop/LayoutKeeper.h"

#include "viewdata/editors/EditorManager.h"

namespace quorin {

namespace {

constexpr Char PartEnd = u'\n'; // between columns and sorting
constexpr std::size_t MostSteps = 100;

bool IsSame(const TcxFilterCriteriaItemList& left, const TcxFilterCriteriaItemList& right);

bool IsSame(TcxFilterCriteriaElement* left, TcxFilterCriteriaElement* right) {
    const auto* lists = ObjectAs<TcxFilterCriteriaItemList>(left);
    const auto* otherLists = ObjectAs<TcxFilterCriteriaItemList>(right);
    if (lists != nullptr && otherLists != nullptr) return IsSame(*lists, *otherLists);
    const auto* item = ObjectAs<TcxFilterCriteriaItem>(left);
    const auto* other = ObjectAs<TcxFilterCriteriaItem>(right);
    return item != nullptr && other != nullptr && item->ItemLink() == other->ItemLink() &&
           item->OperatorKind() == other->OperatorKind() && item->Value() == other->Value() &&
           item->DisplayValue() == other->DisplayValue();
}

bool IsSame(const TcxFilterCriteriaItemList& left, const TcxFilterCriteriaItemList& right) {
    if (left.GetCount() != right.GetCount()) return false;
    if (left.BoolOperatorKind() != right.BoolOperatorKind()) return false;
    for (Integer index = 0; index < left.GetCount(); ++index) {
        if (!IsSame(left.GetItem(index), right.GetItem(index))) return false;
    }
    return true;
}

} // namespace

TLayoutKeeper::TLayoutKeeper(const TFormView& view, QObject* parent)
    : QObject(parent), FView(view), FKnown(Now()) {}

TLayoutKeeper::TState TLayoutKeeper::Now() const {
    TState state{Layout(), nullptr};
    if (FView.Grid != nullptr) {
        auto filter = std::make_shared<TcxFilterCriteriaItemList>();
        filter->Assign(FView.Grid->ActiveView()->Filter().Root());
        state.Filter = std::move(filter);
    }
    return state;
}

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
}

// The columns that the criteria are about are the form's own and go with it alone.
void TLayoutKeeper::ApplyFilter(const TcxFilterCriteriaItemList& filter) {
    TcxDataFilterCriteria& criteria = FView.Grid->ActiveView()->Filter();
    if (IsSame(criteria.Root(), filter)) return;
    criteria.Root().Assign(filter);
    criteria.Refresh();
}

void TLayoutKeeper::Restore(StringView layout) {
    FSteps.clear();
    Apply(layout);
    FKnown = Now();
    emit Changed();
}

void TLayoutKeeper::Note() {
    TState now = Now();
    const bool isSameFilter = now.Filter == nullptr || IsSame(*now.Filter, *FKnown.Filter);
    if (now.Layout == FKnown.Layout && isSameFilter) return;
    if (FSteps.size() == MostSteps) FSteps.erase(FSteps.begin());
    FSteps.push_back(std::move(FKnown));
    FKnown = std::move(now);
    emit Changed();
}

bool TLayoutKeeper::Undo() {
    Note();
    if (FSteps.empty()) return false;
    const TState before = std::move(FSteps.back());
    FSteps.pop_back();
    if (before.Layout != FKnown.Layout) Apply(before.Layout);
    if (before.Filter != nullptr) ApplyFilter(*before.Filter);
    FKnown = Now();
    emit Changed();
    return true;
}

} // namespace quorin
