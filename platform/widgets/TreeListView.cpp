#include "platform/widgets/TreeListView.h"

#include "platform/widgets/CustomDataSource.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quorin {

TcxVirtualTreeList::TcxVirtualTreeList(TComponent* owner) : TComponent(owner) {
    FController.SetOnForget(MakeEvent<&TcxVirtualTreeList::SourceChanged>(this));
    FColumns.SetOnSortChanged(MakeEvent<&TcxVirtualTreeList::ForgetRows>(this));
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

void TcxVirtualTreeList::SourceChanged(TObject*) {
    if (FKnownSource != CustomDataSource()) {
        FKnownSource = CustomDataSource();
        FToggled.Clear();
        FFocusedNode = nullptr;
        ForgetRows(nullptr);
        return;
    }
    const Int64 version = ShapeVersion();
    const bool isSame = FRowsKnown && version != 0 && version == FRowsVersion;
    if (isSame && FColumns.Sorted().IsEmpty()) {
        FIsTopCountTrue = false;
    } else {
        ForgetRows(nullptr);
    }
}

void TcxVirtualTreeList::ForgetRows(TObject*) {
    DropRows();
    FController.InvalidatePaint();
}

void TcxVirtualTreeList::DropRows() {
    FRowsKnown = false;
    ++FForgets;
    FRows.Clear();
}

Int64 TcxVirtualTreeList::ShapeVersion() const {
    TcxTreeListCustomDataSource* source = CustomDataSource();
    return source != nullptr ? source->GetShapeVersion() : 0;
}

Integer TcxVirtualTreeList::TopCount() {
    if (FShape == TcxTreeShape::FlatList) return FController.RecordCount();
    TcxTreeListCustomDataSource* source = CustomDataSource();
    return source != nullptr ? source->GetChildCount(source->GetRootRecordHandle()) : 0;
}

// A source that promises too much is found out by its count.
void TcxVirtualTreeList::CheckTopCount() {
    FIsTopCountTrue = true; // before the call, which may tell of the next change
    if (TopCount() != FRowsTops) DropRows();
}

String TcxVirtualTreeList::IdentityOf(TcxDataRecordHandle node) const {
    TcxTreeListCustomDataSource* source = CustomDataSource();
    return source != nullptr && node != nullptr ? source->GetRecordIdentity(node) : String();
}

// The calls out may tell of the next change, and somebody may look inside them: what was gathered
// before that is not shown, unless the source never comes to rest.
void TcxVirtualTreeList::EnsureRows() {
    if (FRowsKnown && !FIsTopCountTrue) CheckTopCount();
    for (Integer walks = 1; !FRowsKnown; ++walks) {
        FRowsKnown = FIsTopCountTrue = true;
        const Integer forgets = FForgets;
        FRowsVersion = ShapeVersion();
        TWalk walk = WalkNodes(forgets);
        FindKnownNodes(walk, forgets);
        const bool isOld = forgets != FForgets;
        if (isOld && (FRowsKnown || walks < MostWalks)) continue;
        ShowNodes(walk, isOld);
        if (isOld) return;
    }
}

// The links are made from the last node to the first.
TcxVirtualTreeList::TWalk TcxVirtualTreeList::WalkNodes(Integer forgets) {
    TWalk walk;
    TList<TNode>& nodes = walk.Nodes;
    if (CustomDataSource() == nullptr) return walk;
    if (FShape == TcxTreeShape::FlatList) {
        GatherFlatList(walk);
    } else {
        TPlaces places;
        walk.Tops = TopCount();
        const TcxDataRecordHandle root = CustomDataSource()->GetRootRecordHandle();
        GatherChildren(nodes, places, root, NoRow, 0);
    }
    const std::vector<Integer> places = SortedPlaces(nodes, forgets);
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        const Integer parent = nodes[*place].Parent;
        Integer& first = parent == NoRow ? walk.First : nodes[parent].FirstChild;
        nodes[*place].NextSibling = std::exchange(first, *place);
    }
    return walk;
}

// All nodes at once: their order among each other is that of each parent's children as well. A
// value that is read may be the end of the nodes: after it none is asked for any more.
std::vector<Integer> TcxVirtualTreeList::SortedPlaces(const TList<TNode>& nodes, Integer forgets) {
    std::vector<Integer> places(static_cast<std::size_t>(nodes.Count()));
    std::iota(places.begin(), places.end(), 0);
    const TList<TcxViewColumn*> sorted = FColumns.Sorted();
    if (sorted.IsEmpty()) return places;
    TList<Integer> items; // by number: a column may end as well
    std::vector<bool> descending;
    for (const TcxViewColumn* column : sorted) {
        items.Add(column->ItemIndex());
        descending.push_back(column->GetSortOrder() == soDescending);
    }
    std::vector<TcxSortKey> keys(places.size() * descending.size());
    auto key = keys.begin();
    for (const TNode& node : nodes) {
        for (const Integer item : items) {
            if (forgets == FForgets) key->Assign(FController.Value(node.Handle, item));
            ++key;
        }
    }
    std::stable_sort(places.begin(), places.end(), [&](Integer left, Integer right) {
        return TcxSortKey::CompareRows(keys, descending, left, right) < 0;
    });
    return places;
}

// A node that has ended may have left its address to another.
void TcxVirtualTreeList::FindKnownNodes(TWalk& walk, Integer forgets) {
    if (FToggled.IsEmpty() && FFocusedNode == nullptr) return;
    for (const TNode& node : walk.Nodes) {
        const bool isFocused = node.Handle == FFocusedNode;
        if (!isFocused && !FToggled.ContainsKey(node.Handle)) continue;
        const String identity = IdentityOf(node.Handle);
        if (forgets != FForgets) return;
        const String* toggled = FToggled.Find(node.Handle);
        if (toggled != nullptr && *toggled == identity) walk.Toggled.Add(node.Handle, identity);
        if (isFocused && FFocusedIdentity == identity) walk.FocusedNode = node.Handle;
    }
}

void TcxVirtualTreeList::ShowNodes(TWalk& walk, bool isOld) {
    if (!isOld) {
        std::swap(FToggled, walk.Toggled);
        if (FFocusedNode != walk.FocusedNode) FFocusedNode = nullptr;
    }
    FRowsTops = walk.Tops;
    FRows.Clear();
    AddRows(FRows, walk, /*all=*/false);

    FFocusedRow = NoRow;
    for (Integer row = 0; row < FRows.Count() && FFocusedNode != nullptr; ++row) {
        if (FRows[row].Node == FFocusedNode) FFocusedRow = row;
    }
    if (FFocusedRow == NoRow) FFocusedNode = nullptr;
}

void TcxVirtualTreeList::GatherFlatList(TWalk& walk) {
    TcxTreeListCustomDataSource& source = *CustomDataSource();
    TList<TNode>& nodes = walk.Nodes;
    TPlaces places;
    const Integer count = walk.Tops = TopCount();
    for (Integer index = 0; index < count; ++index) {
        const TcxDataRecordHandle node = source.GetRecordHandle(index);
        if (node == nullptr || !places.Add(node, nodes.Count())) continue;
        nodes.Add(TNode{node});
    }
    for (TNode& node : nodes) {
        const TcxDataRecordHandle parent = source.GetParentRecordHandle(node.Handle);
        if (parent != nullptr) places.TryGetValue(parent, node.Parent);
    }
}

void TcxVirtualTreeList::GatherChildren(TList<TNode>& nodes, TPlaces& places,
                                        TcxDataRecordHandle node, Integer parent, Integer depth) {
    TcxTreeListCustomDataSource& source = *CustomDataSource();
    if (depth >= MaxDepth) return;
    const Integer count = source.GetChildCount(node);
    for (Integer index = 0; index < count; ++index) {
        const TcxDataRecordHandle child = source.GetChildRecordHandle(node, index);
        const Integer place = nodes.Count();
        if (child == nullptr || !places.Add(child, place)) continue;
        nodes.Add(TNode{child, parent});
        GatherChildren(nodes, places, child, place, depth + 1);
    }
}

void TcxVirtualTreeList::AddRows(TList<TcxTreeRow>& rows, const TWalk& walk, bool all) const {
    AddRowsFrom(rows, walk.Nodes, all, walk.First, 0);
}

void TcxVirtualTreeList::AddRowsFrom(TList<TcxTreeRow>& rows, const TList<TNode>& nodes, bool all,
                                     Integer first, Integer depth) const {
    for (Integer place = first; place != NoRow; place = nodes[place].NextSibling) {
        const TNode& node = nodes[place];
        const bool hasChildren = node.FirstChild != NoRow;
        const bool isExpanded = hasChildren && IsExpanded(node.Handle);
        rows.Add(TcxTreeRow{node.Handle, depth, hasChildren, isExpanded});
        const bool goesOn = hasChildren && (all || isExpanded) && depth + 1 < MaxDepth;
        if (goesOn) AddRowsFrom(rows, nodes, all, node.FirstChild, depth + 1);
    }
}

TList<TcxTreeRow> TcxVirtualTreeList::AllRows() {
    for (Integer walks = 1;; ++walks) {
        const Integer forgets = FForgets;
        const TWalk walk = WalkNodes(forgets);
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
    const Integer forgets = FForgets;
    String identity = IdentityOf(shown.Node);
    if (forgets != FForgets) return; // the node may be gone
    if (!expanded && IsBelow(FFocusedRow, row)) {
        FFocusedNode = shown.Node;
        FFocusedIdentity = identity;
    }
    if (expanded == FStartsExpanded) {
        FToggled.Remove(shown.Node);
    } else {
        FToggled.AddOrSetValue(shown.Node, std::move(identity));
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
    const Pointer node = Row(row).Node;
    FFocusedIdentity = IdentityOf(node);
    FFocusedNode = node;
    FFocusedRow = node == nullptr ? NoRow : row;
    FController.InvalidatePaint();
}

} // namespace quorin
