#include "terminal/forms/PositionViewForm.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/positionview/PositionViewAttributes.h"
#include "viewdata/services/ResourceKeys.h"

#include <iterator>

namespace quorin {

namespace {

namespace A = PositionAttribute;
namespace V = PositionViewAttribute;

constexpr TFormColumn Columns[] = {
    {A::SymbolCode, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {A::SymbolName, ResourceKey::Res_SymbolName, 136, u"Name", false},
    {V::Side, TerminalKey::Res_Side, 48, u"Side", false},
    {V::NetQuantity, TerminalKey::Res_Net, 72, u"Net", true},
    {V::TotalBought, TerminalKey::Res_Bought, 72, u"Bought", true},
    {V::TotalSold, TerminalKey::Res_Sold, 72, u"Sold", true},
    {V::AveragePrice, TerminalKey::Res_AveragePrice, 88, u"AvgPrice", false},
    {A::LastPrice, TerminalKey::Res_Last, 80, u"Last", false},
    {A::MarketValue, TerminalKey::Res_MarketValue, 128, u"MarketValue", false},
    {V::AcceptValue, TerminalKey::Res_AcceptValue, 128, u"AcceptValue", false},
    {V::RealisedPL, TerminalKey::Res_RealisedPL, 112, u"RealisedPL", false},
    {V::UnrealisedPL, TerminalKey::Res_UnrealisedPL, 112, u"UnrealisedPL", false},
    {V::TotalPL, TerminalKey::Res_TotalPL, 112, u"TotalPL", false},
    {A::Currency, ResourceKey::Res_Currency, 64, u"Currency", false},
};

constexpr Integer All[] = {
    A::SymbolCode,
    A::Account,
    V::Side,
    A::SymbolName,
    A::LastPrice,
    V::AveragePrice,
    V::PrincipalType,
    V::TotalBought,
    V::TotalSold,
    V::AverageBuyPrice,
    V::AverageSellPrice,
    V::NetQuantity,
    V::HeldShort,
    V::RealisedPL,
    V::MarginRatio,
    V::UnrealisedPL,
    V::TodayBuyQuantity,
    V::TodaySellQuantity,
    V::PendingBuyQuantity,
    V::Deposited,
    V::Withdrawn,
    V::ContractSize,
    V::TotalPL,
    V::TodayNetAmount,
    V::TodayNetQuantity,
    V::ConvertedAcceptValue,
    V::AcceptValue,
    V::CoveredQuantity,
    V::MovedQuantity,
    V::TodayAverageBuyPrice,
    V::TodayAverageSellPrice,
    V::TodayBuyAmount,
    V::TodaySellAmount,
    V::Custody,
    V::NetWithCustody,
    V::LeftFromStart,
    V::TodayOpened,
    V::TodayClosed,
};

} // namespace

TPositionViewControl::TPositionViewControl(TComponent* AOwner)
    : TPositionViewDataControl(AOwner), FColumns(Columns) {
    EmptyDisplayText = NothingToShow;
}

TPositionViewForm::TPositionViewForm() {
    auto control = CreateComponent<TPositionViewControl>();
    FControl = control.get();
    Bind(std::move(control));
}

bool TPositionViewForm::IsText(Integer attribute) const {
    return attribute == V::Side || attribute == V::PrincipalType || TListForm::IsText(attribute);
}

std::vector<Integer> TPositionViewForm::Attributes() {
    return {std::begin(All), std::end(All)};
}

} // namespace quorin
