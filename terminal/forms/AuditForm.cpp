#include "terminal/forms/AuditForm.h"

#include "embedded/TimeText.h"
#include "platform/rtl/Text.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

namespace A = AuditAttribute;

constexpr TFormColumn Columns[] = {
    {A::Sequence, TerminalKey::Res_OrderNumber, 48, u"Sequence", false},
    {A::Time, TerminalKey::Res_Time, 72, u"Time", false},
    {A::Kind, TerminalKey::Res_Kind, 96, u"Kind", false},
    {A::OrderNumber, TerminalKey::Res_Order, 56, u"Order", false},
    {A::Account, ResourceKey::Res_Account, 80, u"Account", false},
    {A::Side, TerminalKey::Res_Side, 56, u"Side", false},
    {A::Quantity, TerminalKey::Res_Qty, 80, u"Quantity", true},
    {A::Symbol, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {A::Price, TerminalKey::Res_Price, 88, u"Price", false},
    {A::Reason, TerminalKey::Res_Reason, 180, u"Reason", false},
    {A::Text, TerminalKey::Res_Text, 320, u"Text", false},
};

constexpr Integer TextColumns[] = {A::Time, A::Kind, A::Side, A::Reason, A::Text};
constexpr StringView LineGap = u"; ";

} // namespace

String AuditPriceText(const TOrderAuditEntry& entry, const TOrderDesk& desk) {
    TOrderValues values;
    values.Symbol = entry.Symbol;
    values.Price = entry.Price;
    const TDeskOrder* order = desk.FindOrder(entry.OrderNumber);
    const bool isFill = entry.Kind == TOrderAuditKind::Fill;
    if (order != nullptr && order->Values.IsMarket() && !isFill) values.Flags = OrderFlag::Market;
    return OrderPriceText(values);
}

TAuditControl::TAuditControl(TComponent* AOwner, const TOrderDesk& desk)
    : TGrowingControl(AOwner, Columns), FDesk(desk) {}

std::optional<Variant> TAuditControl::CellNumber(Integer record, Integer attribute) const {
    const TOrderAuditEntry& entry = FDesk.Audit()[record];
    const auto ofSymbol = [&entry](Double number) {
        return entry.Symbol.empty() ? Variant() : Variant(number);
    };
    switch (attribute) {
    case A::Sequence: return entry.Sequence;
    case A::OrderNumber: return entry.OrderNumber > 0 ? Variant(entry.OrderNumber) : Variant();
    case A::Quantity: return ofSymbol(entry.Quantity);
    case A::Price: return ofSymbol(entry.Price);
    default: return {};
    }
}

String TAuditControl::CellText(Integer record, Integer attribute) const {
    const TOrderAuditEntry& entry = FDesk.Audit()[record];
    const bool isOfSymbol = !entry.Symbol.empty();
    switch (attribute) {
    case A::Symbol: return entry.Symbol;
    case A::Time: {
        String time;
        AppendTimeOfDay(time, entry.TimeNanos / NanosPerSecond);
        return time;
    }
    case A::Kind: return InterfaceText(AuditKey(entry.Kind));
    case A::Side: return isOfSymbol ? SideText(entry.BuySell) : String();
    case A::Quantity: return isOfSymbol ? QuantityText(entry.Quantity, entry.Symbol) : String();
    case A::Price: return isOfSymbol ? AuditPriceText(entry, FDesk) : String();
    case A::Reason: return ReasonText(entry.Reason);
    case A::Text: return ReplaceAll(entry.Text, u"\n", LineGap);
    case A::Account: return entry.Account;
    default: {
        const Variant number = CellNumber(record, attribute).value_or(Variant());
        return number.IsNull() ? String() : number.ToText();
    }
    }
}

bool TAuditForm::IsText(Integer attribute) const {
    return std::find(std::begin(TextColumns), std::end(TextColumns), attribute) !=
               std::end(TextColumns) ||
           Inherited::IsText(attribute);
}

String TAuditForm::Title() {
    return InterfaceText(TerminalKey::Res_AuditList);
}

} // namespace quorin
