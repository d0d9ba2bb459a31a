#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/rtl/TList.h"

namespace quorin {

class TcxViewColumns;

inline constexpr Integer DefaultColumnWidth = 64;

enum class TdxSortOrder : Byte { soNone, soAscending, soDescending };
using enum TdxSortOrder;

inline constexpr Integer NotSorted = -1;

// One column of a grid or tree list. Its tag holds the number of what it shows; what the number
// means is the source's business. The view owns it; it may be freed before the view.
class TcxViewColumn : public TComponent {
    QUORIN_CLASS(TcxViewColumn, TComponent)

    TcxViewColumn(TComponent* owner, TcxViewColumns& columns);
    ~TcxViewColumn() override;

    const String& Caption() const { return FCaption; }
    void SetCaption(StringView caption);
    // Width in the skin's own unit, never below the smallest one, which is 0 to begin with.
    Integer GetWidth() const { return FWidth; }
    void SetWidth(Integer width);
    Integer MinWidth() const { return FMinWidth; }
    void SetMinWidth(Integer width);
    bool GetVisible() const { return FVisible; }
    void SetVisible(bool visible);
    // Place among all columns; -1 once the view is gone.
    Integer Index() const;
    // Moves the column; an index outside is taken as the nearest end.
    void SetIndex(Integer index);
    // Place among the visible columns; -1 for a hidden one.
    virtual Integer VisibleIndex() const;
    // Place in the order of making, which moves do not change.
    Integer ItemIndex() const { return FItemIndex; }

    // Where the column stands in the sort sequence, as it was set; NotSorted while it does not
    // sort. The sequence goes by these numbers, which may have gaps.
    Integer GetSortIndex() const { return FSortIndex; }
    void SetSortIndex(Integer index);
    TdxSortOrder GetSortOrder() const { return FSortOrder; }
    // A column that begins to sort without an index stands last. soNone takes the index away.
    void SetSortOrder(TdxSortOrder order);

protected:
    TcxViewColumns* Columns() const { return FColumns; }
    void Changed();

private:
    friend class TcxViewColumns;

    TcxViewColumns* FColumns;
    String FCaption;
    Integer FItemIndex = 0;
    Integer FWidth = DefaultColumnWidth;
    Integer FMinWidth = 0;
    Integer FSortIndex = NotSorted;
    TdxSortOrder FSortOrder = soNone;
    bool FVisible = true;
};

class TcxCustomDataController;

// The columns of one view: in view order here, in the order of making in the data controller.
class TcxViewColumns {
public:
    explicit TcxViewColumns(TcxCustomDataController& controller) : FController(controller) {}
    TcxViewColumns(const TcxViewColumns&) = delete;
    TcxViewColumns& operator=(const TcxViewColumns&) = delete;
    // The columns that are left lose their view; their owner frees them.
    ~TcxViewColumns();

    Integer Count() const { return FOrder.Count(); }
    // Nil outside.
    TcxViewColumn* Get(Integer index) const { return FOrder.Has(index) ? FOrder[index] : nullptr; }
    // The columns that sort, in the sort sequence.
    TList<TcxViewColumn*> Sorted() const;
    void ClearSorting();
    // Raised when the sort has changed.
    void SetOnSortChanged(const TNotifyEvent& event) { FOnSortChanged = event; }
    // Raised when a column has come on show or gone from it.
    void SetOnVisibleChanged(const TNotifyEvent& event) { FOnVisibleChanged = event; }

private:
    friend class TcxViewColumn;
    void SortChanged();
    void VisibleChanged();
    void Add(TcxViewColumn* column);
    void Remove(TcxViewColumn* column);

    TcxCustomDataController& FController;
    TList<TcxViewColumn*> FOrder;
    TNotifyEvent FOnSortChanged;
    TNotifyEvent FOnVisibleChanged;
};

} // namespace quorin
