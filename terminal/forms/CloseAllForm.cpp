#include "terminal/forms/CloseAllForm.h"

#include "viewdata/frame/OrderActions.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/services/OrderAdapter.h"
#include "viewdata/services/PositionAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr StringView SymbolGap = u", ";
constexpr Double LargestOrder = MaxOrderQuantity;

void FillClosingOrder(TCustomClientOrder& order, const TCustomPositionData& record) {
    order.Clear();
    SetMarketFlag(order);
    order.SetPrice(0.0);
    order.SetBuySell(record.GetQuantity() > 0.0 ? OrderSide::Sell : OrderSide::Buy);
    order.SetSymbol(record.GetSymbol());
    order.SetAccount(record.GetAccount());
    order.SetQuantity(std::min(std::fabs(record.GetQuantity()), LargestOrder));
}

} // namespace

TCloseAllForm::TCloseAllForm(std::unique_ptr<TCustomPositionDataControl> list)
    : FList(list.get()),
      FIsOfView(ObjectAs<TPositionViewCloseAllPositionDataControl>(FList) != nullptr) {
    Bind(std::move(list));
    for (Integer row = 0; row < RowCount(); ++row) {
        if (CanTick(row)) FOffered.insert(Symbol(row));
    }
    FTicked = FOffered;
}

const TCustomPositionData* TCloseAllForm::Closable(StringView symbol) const {
    const TCustomPositionData* record =
        TCustomPositionAdapter::GetInstance()->GetPosition(FList->Account(), symbol);
    if (record == nullptr || record->GetQuantity() == 0.0) return nullptr; // exactly: it is closed
    return FIsOfView || record->GetSide() == TPositionSide::Net ? record : nullptr;
}

bool TCloseAllForm::CanTick(Integer row) {
    return Closable(Symbol(row)) != nullptr;
}

bool TCloseAllForm::IsTicked(Integer row) {
    return FTicked.count(Symbol(row)) > 0;
}

void TCloseAllForm::SetTicked(Integer row, bool isTicked) {
    const String symbol = Symbol(row);
    if (isTicked && Closable(symbol) != nullptr) {
        FTicked.insert(symbol);
    } else {
        FTicked.erase(symbol);
    }
}

String TCloseAllForm::TickedText() const {
    String text;
    for (const String& symbol : FTicked) {
        if (!text.empty()) text += SymbolGap;
        text += symbol;
    }
    return text;
}

// The position view closes sided records too, and says of its orders that they close.
Integer TCloseAllForm::CloseTicked() {
    TCustomOrderAdapter* orders = TCustomOrderAdapter::GetInstance();
    if (orders == nullptr) return 0;
    const std::unique_ptr<TCustomClientOrder> order = orders->CreateClientOrder();
    Integer taken = 0;
    for (const String& symbol : FTicked) {
        const TCustomPositionData* record = Closable(symbol);
        if (record == nullptr) continue;
        FillClosingOrder(*order, *record);
        if (FIsOfView) order->SetExtraValue(ClosePositionFlagKey, ClosePositionFlagValue);
        if (TakeOrder(*order)) ++taken;
    }
    return taken;
}

} // namespace quorin
