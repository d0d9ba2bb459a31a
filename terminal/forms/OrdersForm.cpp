#include "terminal/forms/OrdersForm.h"

#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

namespace A = OrderAttribute;

constexpr TFormColumn Columns[] = {
    {A::Number, TerminalKey::Res_OrderNumber, 48, u"Number", false},
    {A::Account, ResourceKey::Res_Account, 80, u"Account", false},
    {A::Side, TerminalKey::Res_Side, 48, u"Side", false},
    {A::Symbol, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {A::Name, ResourceKey::Res_SymbolName, 150, u"Name", false},
    {A::Quantity, TerminalKey::Res_Qty, 80, u"Quantity", true},
    {A::Price, TerminalKey::Res_Price, 80, u"Price", false},
    {A::Filled, TerminalKey::Res_Filled, 80, u"Filled", true},
    {A::AveragePrice, TerminalKey::Res_AveragePrice, 88, u"AveragePrice", false},
    {A::State, ResourceKey::Res_Status, 96, u"State", false},
    {A::Reason, TerminalKey::Res_Reason, 200, u"Reason", false},
};

constexpr Integer TextColumns[] = {A::Side, A::State, A::Reason};

} // namespace

TOrdersControl::TOrdersControl(TComponent* AOwner, TOrderDesk& desk)
    : TCustomDataControl(AOwner), FDesk(desk), FColumns(Columns) {
    EmptyDisplayText = NothingToShow;
    FDesk.AddChangeCallback(MakeEvent<&TOrdersControl::OrdersChanged>(this), this);
}

TOrdersControl::~TOrdersControl() {
    FDesk.RemoveChangeCallback(this);
}

void TOrdersControl::SetWorkingOnly(bool isWorkingOnly) {
    FIsWorkingOnly = isWorkingOnly;
    OrdersChanged({}, {});
}

Integer TOrdersControl::GetCount() {
    return static_cast<Integer>(FIsWorkingOnly ? FWorking.size() : FDesk.Orders().size());
}

// An order that has ended stays in its row until the desk tells of it.
void TOrdersControl::OrdersChanged(Pointer, Pointer) {
    FWorking.clear();
    if (FIsWorkingOnly) {
        for (const TDeskOrder* order : FDesk.WorkingOrders()) FWorking.push_back(order->Number);
    }
    FireDataChanged();
}

const TDeskOrder& TOrdersControl::Order(Integer record) const {
    const auto place = static_cast<std::size_t>(record);
    return FIsWorkingOnly ? *FDesk.FindOrder(FWorking[place]) : FDesk.Orders()[place];
}

Variant TOrdersControl::GetValue(Integer RecordIndex, Integer Attribute) {
    if (RecordIndex < 0 || RecordIndex >= GetCount()) return {};
    const TDeskOrder& order = Order(RecordIndex);
    switch (Attribute) {
    case A::Symbol: return order.Values.Symbol;
    case A::Number: return order.Number;
    case A::Quantity: return order.Values.Quantity;
    case A::Price: return order.Values.IsMarket() ? Variant() : Variant(order.Values.Price);
    case A::Filled: return order.Filled;
    case A::AveragePrice: return order.Filled > 0.0 ? Variant(order.AveragePrice()) : Variant();
    case A::Account: return order.Values.Account;
    default: return GetDisplayValue(RecordIndex, Attribute);
    }
}

String TOrdersControl::GetDisplayValue(Integer RecordIndex, Integer Attribute) {
    if (RecordIndex < 0 || RecordIndex >= GetCount()) return EmptyDisplayText;
    const TDeskOrder& order = Order(RecordIndex);
    const TOrderValues& values = order.Values;
    switch (Attribute) {
    case A::Side: return SideText(values.BuySell);
    case A::Quantity: return QuantityText(values.Quantity, values.Symbol);
    case A::Price: return OrderPriceText(values);
    case A::Filled:
        return order.Filled > 0.0 ? QuantityText(order.Filled, values.Symbol) : EmptyDisplayText;
    case A::AveragePrice:
        return order.Filled > 0.0 ? AveragePriceText(order.AveragePrice(), values.Symbol)
                                  : EmptyDisplayText;
    case A::State: return InterfaceText(OrderStateKey(order.State));
    case A::Reason: return ReasonText(order.Reason);
    case A::Name: return SymbolName(values.Symbol);
    case A::Symbol:
    case A::Number:
    case A::Account: return GetValue(RecordIndex, Attribute).ToText();
    default: return EmptyDisplayText;
    }
}

TOrdersForm::TOrdersForm(TOrderDesk& desk) {
    auto control = CreateComponent<TOrdersControl>(nullptr, desk);
    FControl = control.get();
    Bind(std::move(control));
}

bool TOrdersForm::IsText(Integer attribute) const {
    for (const Integer text : TextColumns) {
        if (attribute == text) return true;
    }
    return Inherited::IsText(attribute);
}

} // namespace quorin
