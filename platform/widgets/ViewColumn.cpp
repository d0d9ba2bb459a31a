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
    FWidth = std::max<Integer>(width, 0);
    Changed();
}

void TcxViewColumn::SetVisible(bool visible) {
    FVisible = visible;
    Changed();
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

TcxViewColumns::~TcxViewColumns() {
    for (TcxViewColumn* column : FOrder) column->FColumns = nullptr;
}

void TcxViewColumns::Add(TcxViewColumn* column) {
    column->FItemIndex = FController.ItemCount();
    FController.AddItem(column);
    FOrder.Add(column);
}

void TcxViewColumns::Remove(TcxViewColumn* column) {
    FController.RemoveItem(column);
    FOrder.Delete(FOrder.IndexOf(column));
    for (TcxViewColumn* other : FOrder) {
        if (other->FItemIndex > column->FItemIndex) --other->FItemIndex;
    }
}

} // namespace quorin
