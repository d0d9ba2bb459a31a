#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/widgets/DataController.h"
#include "platform/widgets/GridTableView.h"
#include "platform/widgets/SortKey.h"
#include "platform/widgets/ViewColumn.h"

#include <vector>

namespace quorin {

class TcxTreeListCustomDataSource;

class TcxTreeListColumn;

// Where a column stands among those of the tree list, hidden ones too.
class TcxTreeListColumnPosition {
public:
    explicit TcxTreeListColumnPosition(TcxTreeListColumn& column) : FColumn(&column) {}
    Integer GetColIndex() const;
    // An index outside is taken as the nearest end.
    void SetColIndex(Integer index);

private:
    TcxTreeListColumn* FColumn;
};

class TcxTreeListColumn : public TcxViewColumn {
    QUORIN_CLASS(TcxTreeListColumn, TcxViewColumn)

    using TcxViewColumn::TcxViewColumn;
    TcxTreeListColumnPosition& Position() { return FPosition; }
    const TcxTreeListColumnPosition& Position() const { return FPosition; }
    Integer GetVisibleIndex() const { return VisibleIndex(); }
    TdxSortOrder SortOrder() const { return GetSortOrder(); }

private:
    TcxTreeListColumnPosition FPosition{*this};
};

// Whether a band has the buttons that open and close nodes.
enum class TcxTreeListBandExpandable : Byte { tlbeDefault, tlbeExpandable, tlbeNotExpandable };

struct TcxTreeListBand {
    TcxTreeListBandExpandable Expandable = TcxTreeListBandExpandable::tlbeDefault;
};

// How the tree's shape reaches the view.
enum class TcxTreeShape : Byte {
    FlatList, // every node by index, each put under its parent
    Children, // from the root down, child by child
};

// One row on show. Good until the source's next change.
struct TcxTreeRow {
    TcxDataRecordHandle Node = nullptr;
    Integer Depth = 0; // 0 on the first level
    bool HasChildren = false;
    bool IsExpanded = false;
};

// Supplies the text of a cell: the node, the column, the text to replace.
using TcxGetTreeTextEvent = TEvent<void(TcxDataRecordHandle, TcxTreeListColumn&, String&)>;

// A tree list without pixels: columns, the rows of expanded nodes in view order, a focused row. A
// change drops all node handles at once, and the next look walks the tree again; unless no column
// sorts and the source's version says that the nodes are the same. Which nodes are open and which
// has the focus is remembered by address, for comparing only, and by the source's identity of the
// node; another source begins anew. Nil nodes are not shown, a node that comes twice is shown once,
// and levels from MaxDepth on are left out. Columns that sort order the nodes below each parent
// among each other; those that tie stay in the source's order. Not supported: editing, filtering.
class TcxVirtualTreeList : public TComponent {
    QUORIN_CLASS(TcxVirtualTreeList, TComponent)

    static constexpr Integer MaxDepth = 64;
    // A source that tells of a change each time it is walked is shown as the last walk found it.
    static constexpr Integer MostWalks = 4;

    explicit TcxVirtualTreeList(TComponent* owner = nullptr);

    TcxCustomDataController& DataController() { return FController; }
    TcxTreeListCustomDataSource* CustomDataSource() const;
    // The source is not owned.
    void SetCustomDataSource(TcxTreeListCustomDataSource* source);
    TcxTreeShape Shape() const { return FShape; }
    void SetShape(TcxTreeShape shape);

    // A new column behind the others; the view owns it.
    TcxTreeListColumn& AddColumn(Integer tag, StringView caption = {});
    Integer GetColumnCount() const { return FColumns.Count(); }
    // Nil outside.
    TcxTreeListColumn* GetColumn(Integer index) const;
    // The one band that all columns stand in.
    TcxTreeListBand& FirstBand() { return FBand; }

    // The columns that sort, in the sort sequence; nil outside.
    Integer GetSortedColumnCount() const { return FColumns.Sorted().Count(); }
    TcxTreeListColumn* GetSortedColumn(Integer index) const;
    // No column sorts afterwards.
    void ClearSorting() { FColumns.ClearSorting(); }
    // One repaint at most for all that is done between the two.
    void BeginUpdate() { FController.BeginUpdate(); }
    void EndUpdate() { FController.EndUpdate(); }

    Integer RowCount();
    // An empty row, without a node, outside.
    TcxTreeRow Row(Integer row);
    // Null outside.
    Variant Value(Integer row, const TcxTreeListColumn& column);
    // What the form supplies, and without a form the value as text. Empty outside.
    String CellText(Integer row, TcxTreeListColumn& column);
    void GetNodeText(TcxDataRecordHandle node, TcxTreeListColumn& column, String& text);
    // The rows as they would be with every node open. The nodes are good as long as Forgets answers
    // the same.
    TList<TcxTreeRow> AllRows();
    // How often node handles have become untrue.
    Integer Forgets() const { return FForgets; }
    void SetOnGetCellText(const TcxGetTreeTextEvent& event) { FOnGetCellText = event; }

    // Opens or closes the row's node; nothing outside and on nodes without children. Closing takes
    // the focus over from a row below it.
    void SetExpanded(Integer row, bool expanded);
    // Whether nodes are open that nobody has opened or closed; closed from the start.
    void SetStartsExpanded(bool expanded);

    // NoRow while none has the focus; it stays with its node while that is on show.
    Integer FocusedRow();
    void SetFocusedRow(Integer row);

    // For the skin, once per frame.
    bool TakeRepaint() { return FController.TakeRepaint(); }

private:
    // Identities of nodes by their addresses.
    using TToggled = TDictionary<Pointer, String>;
    // A node of the walk: links are indexes into the walk, NoRow for none.
    struct TNode {
        TcxDataRecordHandle Handle = nullptr;
        Integer Parent = NoRow;
        Integer FirstChild = NoRow;
        Integer NextSibling = NoRow;
    };
    struct TWalk {
        TList<TNode> Nodes;
        Integer First = NoRow; // of the first level
        Integer Tops = 0;      // as TopCount
        TToggled Toggled;      // what of FToggled and FFocusedNode is still there
        Pointer FocusedNode = nullptr;
    };
    using TPlaces = TDictionary<Pointer, Integer>; // where in the walk a node stands

    void SourceChanged(TObject*);
    void ForgetRows(TObject*);
    void DropRows();
    void EnsureRows();
    Int64 ShapeVersion() const;
    // What a source is asked for after each change: records of the flat list, or nodes of the first
    // level.
    Integer TopCount();
    void CheckTopCount();
    String IdentityOf(TcxDataRecordHandle node) const;
    // Of the tree as it was when so many changes had been told.
    TWalk WalkNodes(Integer forgets);
    void FindKnownNodes(TWalk& walk, Integer forgets);
    // Of a walk that is old already, what it has found of toggled nodes counts for nothing.
    void ShowNodes(TWalk& walk, bool isOld);
    // The row stands in the branch of the other.
    bool IsBelow(Integer row, Integer ancestor) const;
    void GatherFlatList(TWalk& walk);
    // The nodes' places in the order of the columns that sort.
    std::vector<Integer> SortedPlaces(const TList<TNode>& nodes, Integer forgets);
    void GatherChildren(TList<TNode>& nodes, TPlaces& places, TcxDataRecordHandle node,
                        Integer parent, Integer depth);
    // Closed nodes keep what is below them, unless all are wanted.
    void AddRows(TList<TcxTreeRow>& rows, const TWalk& walk, bool all) const;
    void AddRowsFrom(TList<TcxTreeRow>& rows, const TList<TNode>& nodes, bool all, Integer first,
                     Integer depth) const;
    bool IsExpanded(TcxDataRecordHandle node) const {
        return FToggled.ContainsKey(node) != FStartsExpanded;
    }

    TcxCustomDataController FController;
    TcxViewColumns FColumns{FController};
    TcxTreeListBand FBand;
    TcxGetTreeTextEvent FOnGetCellText;
    TList<TcxTreeRow> FRows;
    TToggled FToggled; // nodes that differ from FStartsExpanded
    Pointer FFocusedNode = nullptr;
    String FFocusedIdentity;
    // Whose nodes these are; for comparing only.
    const TcxTreeListCustomDataSource* FKnownSource = nullptr;
    Int64 FRowsVersion = 0; // the source's when its nodes were walked
    Integer FRowsTops = 0;
    bool FIsTopCountTrue = true; // as far as one can know without asking
    Integer FFocusedRow = NoRow;
    TcxTreeShape FShape = TcxTreeShape::FlatList;
    bool FStartsExpanded = false;
    Integer FForgets = 0;
    bool FRowsKnown = false; // FRows tells the truth
};

} // namespace quorin
