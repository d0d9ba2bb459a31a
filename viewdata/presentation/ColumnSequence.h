#pragma once

#include "platform/widgets/GridBandedTableView.h"
#include "platform/widgets/TreeListView.h"

namespace quorin {

// The order in which a view's columns are written down. Visible columns go as they stand on the
// screen; where a hidden one is compared, both go by their places among all columns, so that the
// order of three columns can contradict itself.
class TGridColumnLayoutSeqIndex {
public:
    // Below 0, 0 or above 0 as `Left` comes before, with or after `Right`.
    Integer Compare(const TcxGridColumn* Left, const TcxGridColumn* Right) const;
};

class TTreeColumnLayoutSeqIndex {
public:
    Integer Compare(const TcxTreeListColumn* Left, const TcxTreeListColumn* Right) const;
};

// What grids and tree lists do differently where columns are put in order.
struct TGridTwin {
    using TView = TcxGridTableView;
    using TColumn = TcxGridColumn;
    using TSequence = TGridColumnLayoutSeqIndex;

    // Gives columns their places, one after the other.
    class TPlacer {
    public:
        explicit TPlacer(TcxGridTableView& view)
            : FIsBanded(ObjectAs<TcxGridBandedTableView>(&view) != nullptr) {}
        // As the column at `index`; in a banded view behind the one that was placed last in the
        // column's band, which it never leaves.
        void Place(TcxGridColumn& column, Integer index);

    private:
        TDictionary<Integer, Integer> FLastPlaces; // by band
        bool FIsBanded;
    };

    static Integer SortedCount(TView& view) { return view.GetSortedItemCount(); }
    static TColumn* Sorted(TView& view, Integer index) { return view.GetSortedItem(index); }
};

struct TTreeTwin {
    using TView = TcxVirtualTreeList;
    using TColumn = TcxTreeListColumn;
    using TSequence = TTreeColumnLayoutSeqIndex;

    class TPlacer {
    public:
        explicit TPlacer(TcxVirtualTreeList&) {}
        void Place(TcxTreeListColumn& column, Integer index) {
            column.Position().SetColIndex(index);
        }
    };

    static Integer SortedCount(TView& view) { return view.GetSortedColumnCount(); }
    static TColumn* Sorted(TView& view, Integer index) { return view.GetSortedColumn(index); }
};

// All columns of the view in their sequence, by insertion: an order that contradicts itself does no
// harm.
template <class Twin>
TList<typename Twin::TColumn*> ColumnSequence(typename Twin::TView& view) {
    const typename Twin::TSequence sequence;
    TList<typename Twin::TColumn*> columns;
    for (Integer index = 0; index < view.GetColumnCount(); ++index) {
        auto* column = view.GetColumn(index);
        if (column == nullptr) continue;
        Integer place = columns.Count();
        while (place > 0 && sequence.Compare(columns[place - 1], column) > 0) --place;
        columns.Insert(place, column);
    }
    return columns;
}

// The first column of the view with that tag; nil without one.
template <class Twin>
typename Twin::TColumn* ColumnByTag(typename Twin::TView& view, Integer tag) {
    for (Integer index = 0; index < view.GetColumnCount(); ++index) {
        auto* column = view.GetColumn(index);
        if (column != nullptr && column->Tag() == tag) return column;
    }
    return nullptr;
}

// While it lives the view repaints nothing.
template <class View>
class TViewUpdate {
public:
    explicit TViewUpdate(View& view) : FView(view) { FView.BeginUpdate(); }
    TViewUpdate(const TViewUpdate&) = delete;
    TViewUpdate& operator=(const TViewUpdate&) = delete;
    ~TViewUpdate() { FView.EndUpdate(); }

private:
    View& FView;
};

} // namespace quorin
