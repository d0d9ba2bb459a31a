#include "terminal/forms/PositionForm.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/position/PositionAttributes.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

namespace {

namespace A = PositionAttribute;

constexpr TFormColumn Columns[] = {
    {A::Account, ResourceKey::Res_Account, 80, u"Account", false},
    {A::SymbolCode, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {A::SymbolName, ResourceKey::Res_SymbolName, 150, u"Name", false},
    {A::LongQuantity, ResourceKey::Res_Long, 72, u"Long", true},
    {A::ShortQuantity, ResourceKey::Res_Short, 72, u"Short", true},
    {A::NetQuantity, TerminalKey::Res_Net, 72, u"Net", true},
    {A::AvailableQuantity, TerminalKey::Res_Available, 80, u"Available", true},
    {A::AveragePrice, TerminalKey::Res_AveragePrice, 88, u"AvgPrice", false},
    {A::LastPrice, TerminalKey::Res_Last, 80, u"Last", false},
    {A::MarketValue, TerminalKey::Res_MarketValue, 128, u"MarketValue", false},
    {A::RealisedPL, TerminalKey::Res_RealisedPL, 112, u"RealisedPL", false},
    {A::UnrealisedPL, TerminalKey::Res_UnrealisedPL, 112, u"UnrealisedPL", false},
    {A::TotalPL, TerminalKey::Res_TotalPL, 112, u"TotalPL", false},
    {A::Currency, ResourceKey::Res_Currency, 64, u"Currency", false},
};

} // namespace

TPositionControl::TPositionControl(TComponent* AOwner) : Inherited(Columns, AOwner) {}

TPositionForm::TPositionForm() : FControl(BindPositions(CreateComponent<TPositionControl>())) {}

} // namespace quorin
