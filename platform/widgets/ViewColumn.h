#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/rtl/TList.h"

namespace quorin {

class TcxViewColumns;

inline constexpr Integer DefaultColumnWidth = 64;

// One column of a grid or tree list. Its tag holds the number of what it shows; what the number
// means is the source's business. The view owns it; it may be freed before the view.
class TcxViewColumn : public TComponent {
    QUORIN_CLASS(TcxViewColumn, TComponent)

    TcxViewColumn(TComponent* owner, TcxViewColumns& columns);
    ~TcxViewColumn() override;

    const String& Caption() const { return FCaption; }
    void SetCaption(StringView caption);
    // Width in the skin's own unit, never negative.
    Integer GetWidth() const { return FWidth; }
    void SetWidth(Integer width);
    bool GetVisible() const { return FVisible; }
    void SetVisible(bool visible);
    // Place among all columns; -1 once the view is gone.
    Integer Index() const;
    // Moves the column; an index outside is taken as the nearest end.
    void SetIndex(Integer index);
    // Place among the visible columns; -1 for a hidden one.
    Integer VisibleIndex() const;
    // Place in the order of making, which moves do not change.
    Integer ItemIndex() const { return FItemIndex; }

private:
    friend class TcxViewColumns;
    void Changed();

    TcxViewColumns* FColumns;
    String FCaption;
    Integer FItemIndex = 0;
    Integer FWidth = DefaultColumnWidth;
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

private:
    friend class TcxViewColumn;
    void Add(TcxViewColumn* column);
    void Remove(TcxViewColumn* column);

    TcxCustomDataController& FController;
    TList<TcxViewColumn*> FOrder;
};

} // namespace quorin
