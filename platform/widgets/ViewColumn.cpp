#include "platform/widgets/ViewColumn.h"

#include "platform/widgets/DataController.h"

#include <algorithm>

namespace quorin {

TcxViewColumn::TcxViewColumn(TComponent* owner, TcxViewColumns& columns)
    : TComponent(owner), FColumns(&columns) {
    FColumns->Add(this);
}

TcxViewColumn::~TcxViewColumn() {
    if (FColumns != nullptr) FColumns->Remove(this);
}

void TcxViewColumn::SetCaption(StringView caption) {
    FCaption = caption;
    Changed();
}

void TcxViewColumn::SetWidth(Integer width) {
    FWidth = std::max(width, FMinWidth);
    Changed();
}

void TcxViewColumn::SetMinWidth(Integer width) {
    FMinWidth = std::max<Integer>(width, 0);
    SetWidth(FWidth);
}

void TcxViewColumn::SetSortIndex(Integer index) {
    const Integer stored = std::max(index, NotSorted);
    if (stored == FSortIndex) return;
    FSortIndex = stored;
    if (FColumns != nullptr) FColumns->SortChanged();
}

void TcxViewColumn::SetSortOrder(TdxSortOrder order) {
    if (order == FSortOrder) return;
    FSortOrder = order;
    if (order == soNone) {
        FSortIndex = NotSorted;
    } else if (FSortIndex == NotSorted && FColumns != nullptr) {
        for (const TcxViewColumn* other : FColumns->FOrder) {
            if (other != this && other->FSortOrder != soNone) {
                FSortIndex = std::max(FSortIndex, other->FSortIndex);
            }
        }
        ++FSortIndex;
    }
    if (FColumns != nullptr) FColumns->SortChanged();
}

void TcxViewColumn::SetVisible(bool visible) {
    if (visible == FVisible) return;
    FVisible = visible;
    Changed();
    if (FColumns != nullptr) FColumns->VisibleChanged();
}

Integer TcxViewColumn::Index() const {
    return FColumns == nullptr ? -1 : FColumns->FOrder.IndexOf(this);
}

void TcxViewColumn::SetIndex(Integer index) {
    if (FColumns == nullptr) return;
    auto& order = FColumns->FOrder;
    order.Move(Index(), std::clamp<Integer>(index, 0, order.Count() - 1));
    Changed();
}

Integer TcxViewColumn::VisibleIndex() const {
    if (!FVisible || FColumns == nullptr) return -1;
    Integer place = 0;
    for (const TcxViewColumn* column : FColumns->FOrder) {
        if (column == this) break;
        if (column->FVisible) ++place;
    }
    return place;
}

void TcxViewColumn::Changed() {
    if (FColumns != nullptr) FColumns->FController.InvalidatePaint();
}

TList<TcxViewColumn*> TcxViewColumns::Sorted() const {
    TList<TcxViewColumn*> sorted;
    for (TcxViewColumn* column : FOrder) {
        if (column->FSortOrder != soNone) sorted.Add(column);
    }
    sorted.Sort([](const TcxViewColumn* left, const TcxViewColumn* right) {
        return left->FSortIndex < right->FSortIndex;
    });
    return sorted;
}

void TcxViewColumns::ClearSorting() {
    for (TcxViewColumn* column : FOrder) {
        column->FSortOrder = soNone;
        column->FSortIndex = NotSorted;
    }
    SortChanged();
}

void TcxViewColumns::SortChanged() {
    FController.InvalidatePaint();
    if (FOnSortChanged) FOnSortChanged(nullptr);
}

void TcxViewColumns::VisibleChanged() {
    if (FOnVisibleChanged) FOnVisibleChanged(nullptr);
}

TcxViewColumns::~TcxViewColumns() {
    for (TcxViewColumn* column : FOrder) column->FColumns = nullptr;
}

void TcxViewColumns::Add(TcxViewColumn* column) {
    column->FItemIndex = FController.ItemCount();
    FController.AddItem(column);
    FOrder.Add(column);
    VisibleChanged();
}

void TcxViewColumns::Remove(TcxViewColumn* column) {
    FController.RemoveItem(column);
    FOrder.Delete(FOrder.IndexOf(column));
    if (column->FSortOrder != soNone) SortChanged();
    for (TcxViewColumn* other : FOrder) {
        if (other->FItemIndex > column->FItemIndex) --other->FItemIndex;
    }
    VisibleChanged();
}

} // namespace quorin
