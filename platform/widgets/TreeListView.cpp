#include "platform/widgets/TreeListView.h"

#include "platform/widgets/CustomDataSource.h"

#include <utility>

namespace quorin {

TcxVirtualTreeList::TcxVirtualTreeList(TComponent* owner) : TComponent(owner) {
    FController.SetOnForget(MakeEvent<&TcxVirtualTreeList::ForgetRows>(this));
}

TcxTreeListCustomDataSource* TcxVirtualTreeList::CustomDataSource() const {
    return static_cast<TcxTreeListCustomDataSource*>(FController.CustomDataSource());
}

void TcxVirtualTreeList::SetCustomDataSource(TcxTreeListCustomDataSource* source) {
    FController.SetCustomDataSource(source);
}

void TcxVirtualTreeList::SetShape(TcxTreeShape shape) {
    FShape = shape;
    ForgetRows(nullptr);
}

TcxTreeListColumn& TcxVirtualTreeList::AddColumn(Integer tag, StringView caption) {
    auto& column = CreateComponent<TcxTreeListColumn>(*this, FColumns);
    column.SetTag(tag);
    column.SetCaption(caption);
    return column;
}

Integer TcxTreeListColumnPosition::GetColIndex() const {
    return FColumn->Index();
}

void TcxTreeListColumnPosition::SetColIndex(Integer index) {
    FColumn->SetIndex(index);
}

TcxTreeListColumn* TcxVirtualTreeList::GetSortedColumn(Integer index) const {
    const TList<TcxViewColumn*> sorted = FColumns.Sorted();
    return sorted.Has(index) ? static_cast<TcxTreeListColumn*>(sorted[index]) : nullptr;
}

TcxTreeListColumn* TcxVirtualTreeList::GetColumn(Integer index) const {
    return static_cast<TcxTreeListColumn*>(FColumns.Get(index)); // AddColumn makes no others
}

void TcxVirtualTreeList::ForgetRows(TObject*) {
    FRowsKnown = false;
    ++FForgets;
    FRows.Clear();
    FController.InvalidatePaint();
}

// The calls out may tell of the next change, and somebody may look inside them: what was gathered
// before that is not shown, unless the source never comes to rest.
void TcxVirtualTreeList::EnsureRows() {
    for (Integer walks = 1; !FRowsKnown; ++walks) {
        FRowsKnown = true;
        const Integer forgets = FForgets;
        TWalk walk = WalkNodes();
        const bool isOld = forgets != FForgets;
        if (isOld && (FRowsKnown || walks < MostWalks)) continue;
        ShowNodes(walk);
        if (isOld) return;
    }
}

TcxVirtualTreeList::TWalk TcxVirtualTreeList::WalkNodes() {
    TWalk walk;
    if (CustomDataSource() == nullptr) return walk;
    if (FShape == TcxTreeShape::FlatList) {
        GatherFlatList(walk);
    } else {
        TPlaces places;
        const TcxDataRecordHandle root = CustomDataSource()->GetRootRecordHandle();
        GatherChildren(walk, places, root, NoRow, 0);
    }
    Integer firstOfAll = NoRow;
    for (Integer index = walk.Count() - 1; index >= 0; --index) {
        const Integer parent = walk[index].Parent;
        Integer& first = parent == NoRow ? firstOfAll : walk[parent].FirstChild;
        walk[index].NextSibling = std::exchange(first, index);
    }
    return walk;
}

void TcxVirtualTreeList::ShowNodes(const TWalk& walk) {
    FRows.Clear();
    AddRows(FRows, walk, /*all=*/false);

    TDictionary<Pointer, bool> toggled; // without the nodes that are gone
    for (const TNode& node : walk) {
        if (FToggled.ContainsKey(node.Handle)) toggled.Add(node.Handle, true);
    }
    std::swap(FToggled, toggled);

    FFocusedRow = NoRow;
    for (Integer row = 0; row < FRows.Count() && FFocusedNode != nullptr; ++row) {
        if (FRows[row].Node == FFocusedNode) FFocusedRow = row;
    }
    if (FFocusedRow == NoRow) FFocusedNode = nullptr;
}

void TcxVirtualTreeList::GatherFlatList(TWalk& walk) {
    TcxTreeListCustomDataSource& source = *CustomDataSource();
    TPlaces places;
    const Integer count = FController.RecordCount();
    for (Integer index = 0; index < count; ++index) {
        const TcxDataRecordHandle node = source.GetRecordHandle(index);
        if (node == nullptr || !places.Add(node, walk.Count())) continue;
        walk.Add(TNode{node});
    }
    for (TNode& node : walk) {
        const TcxDataRecordHandle parent = source.GetParentRecordHandle(node.Handle);
        if (parent != nullptr) places.TryGetValue(parent, node.Parent);
    }
}

void TcxVirtualTreeList::GatherChildren(TWalk& walk, TPlaces& places, TcxDataRecordHandle node,
                                        Integer parent, Integer depth) {
    TcxTreeListCustomDataSource& source = *CustomDataSource();
    if (depth >= MaxDepth) return;
    const Integer count = source.GetChildCount(node);
    for (Integer index = 0; index < count; ++index) {
        const TcxDataRecordHandle child = source.GetChildRecordHandle(node, index);
        const Integer place = walk.Count();
        if (child == nullptr || !places.Add(child, place)) continue;
        walk.Add(TNode{child, parent});
        GatherChildren(walk, places, child, place, depth + 1);
    }
}

void TcxVirtualTreeList::AddRows(TList<TcxTreeRow>& rows, const TWalk& walk, bool all) const {
    Integer first = 0; // of the first level
    while (first < walk.Count() && walk[first].Parent != NoRow) ++first;
    AddRowsFrom(rows, walk, all, first < walk.Count() ? first : NoRow, 0);
}

void TcxVirtualTreeList::AddRowsFrom(TList<TcxTreeRow>& rows, const TWalk& walk, bool all,
                                     Integer first, Integer depth) const {
    for (Integer place = first; place != NoRow; place = walk[place].NextSibling) {
        const TNode& node = walk[place];
        const bool hasChildren = node.FirstChild != NoRow;
        const bool isExpanded = hasChildren && IsExpanded(node.Handle);
        rows.Add(TcxTreeRow{node.Handle, depth, hasChildren, isExpanded});
        const bool goesOn = hasChildren && (all || isExpanded) && depth + 1 < MaxDepth;
        if (goesOn) AddRowsFrom(rows, walk, all, node.FirstChild, depth + 1);
    }
}

TList<TcxTreeRow> TcxVirtualTreeList::AllRows() {
    for (Integer walks = 1;; ++walks) {
        const Integer forgets = FForgets;
        const TWalk walk = WalkNodes();
        if (forgets != FForgets && walks < MostWalks) continue;
        TList<TcxTreeRow> rows;
        AddRows(rows, walk, /*all=*/true);
        return rows;
    }
}

Integer TcxVirtualTreeList::RowCount() {
    EnsureRows();
    return FRows.Count();
}

TcxTreeRow TcxVirtualTreeList::Row(Integer row) {
    EnsureRows();
    return FRows.Has(row) ? FRows[row] : TcxTreeRow{};
}

Variant TcxVirtualTreeList::Value(Integer row, const TcxTreeListColumn& column) {
    const TcxTreeRow shown = Row(row);
    if (shown.Node == nullptr) return Variant();
    return FController.Value(shown.Node, column.ItemIndex());
}

String TcxVirtualTreeList::CellText(Integer row, TcxTreeListColumn& column) {
    String text;
    GetNodeText(Row(row).Node, column, text);
    return text;
}

void TcxVirtualTreeList::GetNodeText(TcxDataRecordHandle node, TcxTreeListColumn& column,
                                     String& text) {
    text.clear();
    if (node == nullptr) return;
    if (FOnGetCellText) {
        FOnGetCellText(node, column, text);
        return;
    }
    const Variant value = FController.Value(node, column.ItemIndex());
    if (!value.IsArray()) text = value.ToText();
}

void TcxVirtualTreeList::SetExpanded(Integer row, bool expanded) {
    const TcxTreeRow shown = Row(row);
    if (!shown.HasChildren || shown.IsExpanded == expanded) return;
    if (!expanded && IsBelow(FFocusedRow, row)) SetFocusedRow(row);
    if (expanded == FStartsExpanded) {
        FToggled.Remove(shown.Node);
    } else {
        FToggled.Add(shown.Node, true);
    }
    ForgetRows(nullptr);
}

bool TcxVirtualTreeList::IsBelow(Integer row, Integer ancestor) const {
    if (row <= ancestor || !FRows.Has(row)) return false;
    Integer next = ancestor + 1;
    while (next <= row && FRows[next].Depth > FRows[ancestor].Depth) ++next;
    return next > row;
}

void TcxVirtualTreeList::SetStartsExpanded(bool expanded) {
    if (expanded == FStartsExpanded) return;
    FStartsExpanded = expanded;
    FToggled.Clear();
    ForgetRows(nullptr);
}

Integer TcxVirtualTreeList::FocusedRow() {
    EnsureRows();
    return FFocusedRow;
}

void TcxVirtualTreeList::SetFocusedRow(Integer row) {
    FFocusedNode = Row(row).Node;
    FFocusedRow = FFocusedNode == nullptr ? NoRow : row;
    FController.InvalidatePaint();
}

} // namespace quorin
