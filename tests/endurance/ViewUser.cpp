#include "tests/endurance/ViewUser.h"

#include "viewdata/editors/EditorManager.h"
#include "viewdata/position/PositionAttributes.h"

#include <set>

namespace quorin {

namespace {

template <class Column>
void SortAny(TDay& day, Column& column) {
    static constexpr TdxSortOrder orders[] = {soNone, soAscending, soDescending};
    column.SetSortOrder(day.Random.OneOf(orders));
}

void FilterAny(TDay& day, TcxGridTableView& view, TcxGridColumn& column) {
    static constexpr TcxFilterOperatorKind kinds[] = {foEqual, foGreater, foLike, foNotEqual};
    static const Variant values[] = {Variant(Integer{0}), Variant(10.5), Variant(u"%0%"),
                                     Variant(u"B")};
    TcxDataFilterCriteria& filter = view.Filter();
    column.DataBinding().AddToFilter(filter.Root(), day.Random.OneOf(kinds),
                                     day.Random.OneOf(values), u"filter", /*ReplaceExisting=*/true);
    filter.SetActive(day.Random.OneIn(2));
    filter.Refresh();
}

void FindAny(TDay& day, TcxGridFindPanel& panel) {
    static constexpr StringView texts[] = {u"00", u"1", u"hk", u"zzz", u""};
    panel.Open();
    panel.SetText(day.Random.OneOf(texts));
    panel.PressFind();
    if (day.Random.OneIn(2)) panel.Close();
}

// What comes out goes in and comes out the same.
void LayOut(TDay& day, TListForm& form) {
    TEditorManager& editors = *TEditorManager::GetInstance();
    const TColumnList* columns = form.FormView().DefaultColumns;
    const String layout = editors.GetGridColumnLayout(form.View(), columns);
    const String sorting = editors.GetGridSortLayout(form.View());
    editors.SetGridColumnLayout(form.View(), layout, columns);
    editors.SetGridSortLayout(form.View(), sorting);
    day.Findings.Require(editors.GetGridColumnLayout(form.View(), columns) == layout,
                         "the column layout is another after a round", layout);
    day.Findings.Require(editors.GetGridSortLayout(form.View()) == sorting,
                         "the sort layout is another after a round", sorting);
}

} // namespace

void PaintShown(TShownForm& form, Integer top) {
    if (!form.TakeRepaint()) return;
    form.Title();
    form.Summary();
    const Integer end = std::min(form.RowCount(), top + ScreenRows);
    for (Integer row = top; row < end; ++row) {
        for (Integer column = 0; column < form.ColumnCount(); ++column) {
            if (form.Column(column).GetVisible()) form.CellText(row, column);
        }
    }
}

void UseGrid(TDay& day, TListForm& form) {
    TcxGridTableView& view = form.View();
    TcxGridColumn& column = *view.GetColumn(day.Random.Pick(view.GetColumnCount()));
    switch (day.Random.Pick(9)) {
    case 0: return SortAny(day, column);
    case 1: return view.ClearSorting();
    case 2: return FilterAny(day, view, column);
    case 3: view.Filter().Root().Clear(); return view.Filter().Refresh();
    case 4: return FindAny(day, view.FindPanel());
    case 5: return column.SetIndex(day.Random.Pick(view.GetColumnCount()));
    case 6: return LayOut(day, form);
    case 7: return view.SetFocusedRow(day.Random.Pick(view.RowCount() + 2) - 1);
    default: return view.SetTopRow(day.Random.Pick(view.RowCount() + 2) - 1);
    }
}

void CheckGrid(TDay& day, TListForm& form, TBaseDataControl& control) {
    TFindings& findings = day.Findings;
    TcxGridTableView& view = form.View();
    const Integer rows = view.RowCount();
    const bool isNarrowed = view.Filter().Active() || view.FindPanel().IsOpen();
    findings.Require(isNarrowed ? rows <= control.GetCount() : rows == control.GetCount(),
                     "the grid has another number of rows than the control");
    std::vector<bool> seen(static_cast<std::size_t>(std::max(control.GetCount(), 0)));
    for (Integer row = 0; row < rows; ++row) {
        const auto record = static_cast<std::size_t>(view.RecordIndex(row));
        if (record >= seen.size()) return findings.Add("a row has no record");
        if (seen[record]) return findings.Add("a record has two rows");
        seen[record] = true;
        findings.Require(view.RowOfRecord(view.RecordIndex(row)) == row,
                         "row and record do not agree");
    }
    findings.Require(view.RecordIndex(-1) == NoRow && view.RecordIndex(rows) == NoRow,
                     "a row outside has a record");
    const Integer row = day.Random.Pick(rows);
    if (rows == 0) return;
    for (Integer index = 0; index < view.GetColumnCount(); ++index) {
        const TcxGridColumn& column = *view.GetColumn(index);
        findings.Require(view.Value(row, column) ==
                             control.GetValue(view.RecordIndex(row), column.GetTag()),
                         "a cell of the grid is not the control's", column.GetCaption());
    }
}

TList<String> CheckSymbols(TDay& day, TListForm& form, TBaseDataControl& control) {
    TList<String> symbols;
    std::set<String> known;
    for (Integer record = 0; record < control.GetCount(); ++record) {
        symbols.Add(control.GetValue(record, PositionAttribute::SymbolCode).ToText());
        day.Findings.Require(known.insert(symbols.Last()).second, "a symbol has two rows",
                             symbols.Last());
    }
    const Integer row = day.Random.Pick(form.RowCount());
    if (form.RowCount() > 0) {
        day.Findings.Require(form.RowStillShows(row, symbols[form.View().RecordIndex(row)]),
                             "a row shows another symbol than its record");
    }
    return symbols;
}

void UseTree(TDay& day, TTreeForm& form) {
    TcxVirtualTreeList& view = form.View();
    const Integer row = day.Random.Pick(view.RowCount() + 2) - 1;
    switch (day.Random.Pick(4)) {
    case 0: return view.SetExpanded(row, day.Random.OneIn(2));
    case 1: return view.SetFocusedRow(row);
    case 2: return SortAny(day, *view.GetColumn(day.Random.Pick(view.GetColumnCount())));
    default: return view.ClearSorting();
    }
}

void CheckTree(TDay& day, TTreeForm& form) {
    TFindings& findings = day.Findings;
    std::set<Pointer> nodes;
    std::vector<Pointer> path; // of the row before
    for (const TcxTreeRow& row : form.View().AllRows()) {
        const auto depth = static_cast<std::size_t>(row.Depth);
        findings.Require(row.Node != nullptr, "a row has no node");
        findings.Require(nodes.insert(row.Node).second, "a node has two rows");
        if (depth > path.size()) return findings.Add("a row stands two levels below the one above");
        path.resize(depth);
        if (form.View().Shape() == TcxTreeShape::FlatList) {
            findings.Require(form.Tree().GetParentNode(row.Node) ==
                                 (path.empty() ? nullptr : path.back()),
                             "a node stands below another than its parent");
        } else {
            const Pointer parent = path.empty() ? form.Tree().GetRootNode() : path.back();
            Integer index = 0;
            const Integer count = form.Tree().GetChildNodeCount(parent);
            while (index < count && form.Tree().GetChildNode(parent, index) != row.Node) ++index;
            findings.Require(index < count, "a node is not among the children above it");
        }
        path.push_back(row.Node);
    }
    // Nothing tells of accounts that are not ready any more.
    findings.Require(!day.IsAllReady || form.RowCount() <= static_cast<Integer>(nodes.size()),
                     "more rows than nodes");
}

bool AreSame(TList<String> left, TList<String> right) {
    const auto less = [](const String& one, const String& other) { return one < other; };
    left.Sort(less);
    right.Sort(less);
    return left == right;
}

} // namespace quorin
