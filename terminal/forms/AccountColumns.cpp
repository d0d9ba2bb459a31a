#include "terminal/forms/AccountColumns.h"

#include "platform/rtl/Numbers.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/frame/ServiceTexts.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

namespace A = AccountAttribute;
namespace K = TerminalKey;

constexpr TFormColumn Columns[] = {
    {A::AvailableCash, K::Res_AvailableCash, 136, u"AvailableCash", false},
    {A::AccountCode, ResourceKey::Res_Account, 112, u"Account", false},
    {A::AccountTag, K::Res_AccountTag, 72, u"Tag", false},
    {A::HolderName, ResourceKey::Res_Name, 168, u"Name", false},
    {A::Currency, ResourceKey::Res_Currency, 64, u"Currency", false},
    {A::CurrencyRatio, K::Res_CurrencyRatio, 72, u"CurrencyRatio", false},
    {A::Value155, K::Res_PendingBuys, 128, u"PendingBuys", false},
    {A::Value156, K::Res_PendingSells, 128, u"PendingSells", false},
    {A::Value185, K::Res_BoughtAmount, 128, u"BoughtAmount", false},
    {A::Value186, K::Res_SoldAmount, 128, u"SoldAmount", false},
    {A::RealisedPL, K::Res_RealisedPL, 120, u"RealisedPL", false},
    {A::MarketValue, K::Res_MarketValue, 136, u"MarketValue", false},
    {A::UnrealisedPL, K::Res_UnrealisedPL, 120, u"UnrealisedPL", false},
    {A::Value604, K::Res_InitialMargin, 136, u"InitialMargin", false},
    {A::Value606, K::Res_MaintenanceMargin, 152, u"MaintenanceMargin", false},
    {A::TotalPL, K::Res_TotalPL, 120, u"TotalPL", false},
    {A::HeldCash, K::Res_HeldCash, 128, u"HeldCash", false},
    {A::Cash, K::Res_Cash, 136, u"Cash", false},
    {A::Shortfall, K::Res_Shortfall, 120, u"Shortfall", false},
    {A::Value1205, K::Res_AcceptValue, 128, u"AcceptValue", false},
    {A::Value1502, K::Res_CreditLimit, 128, u"CreditLimit", false},
    {A::Value1503, K::Res_Loan, 112, u"Loan", false},
    {A::Value9018, K::Res_BuyingPower, 136, u"BuyingPower", false},
    {A::Value9028, K::Res_NetAssets, 136, u"NetAssets", false},
};

constexpr Integer TextFigures[] = {A::AccountCode, A::AccountTag, A::HolderName, A::Currency};
constexpr Integer CustomColumnWidth = 144; // pixels

const TFormColumn* FindNamed(Integer attribute) {
    const auto* found =
        std::find_if(std::begin(Columns), std::end(Columns),
                     [=](const TFormColumn& column) { return column.Attribute == attribute; });
    return found != std::end(Columns) ? found : nullptr;
}

bool IsCustomColumn(Integer attribute) {
    return attribute >= FirstCustomColumn &&
           !ResourceText(AccountCustomColumns, IntegerToText(attribute - FirstCustomColumn))
                .empty();
}

} // namespace

std::vector<TFormColumn> AccountColumns(std::span<const Integer> attributes) {
    std::vector<TFormColumn> columns;
    for (const Integer attribute : attributes) {
        if (const TFormColumn* named = FindNamed(attribute)) {
            columns.push_back(*named);
        } else if (IsCustomColumn(attribute)) {
            columns.push_back({attribute, {}, CustomColumnWidth, {}, false});
        }
    }
    return columns;
}

bool IsTextFigure(Integer attribute) {
    return std::find(std::begin(TextFigures), std::end(TextFigures), attribute) !=
           std::end(TextFigures);
}

bool IsAmountFigure(Integer attribute) {
    return !IsTextFigure(attribute) && attribute != A::CurrencyRatio &&
           attribute < FirstCustomColumn;
}

bool IsAccountColumn(Integer attribute) {
    return FindNamed(attribute) != nullptr || IsCustomColumn(attribute);
}

} // namespace quorin
