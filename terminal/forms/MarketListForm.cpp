#include "terminal/forms/MarketListForm.h"

#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/AccountAdapter.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

constexpr Integer MovingAttributes[] = {
    MarketAttribute::BestBid,         MarketAttribute::BestAsk,         MarketAttribute::LastPrice,
    MarketAttribute::BestBidQuantity, MarketAttribute::BestAskQuantity, MarketAttribute::Volume,
};

} // namespace

TMarketListForm::TMarketListForm() = default;

// Only now is there a list that a call could reach.
void TMarketListForm::FollowAccounts() {
    TCustomAccountAdapter::GetInstance()->AddAccountReadyCallback(
        MakeEvent<&TMarketListForm::AccountsReady>(this), this);
}

TMarketListForm::~TMarketListForm() {
    TCustomAccountAdapter::GetInstance()->RemoveAccountReadyCallback(this);
}

void TMarketListForm::ShowAccount(StringView account) {
    FAccount = account;
    FList->SetAccount(account);
}

void TMarketListForm::AccountsReady(Pointer, Pointer) {
    FList->SetAccount(FAccount);
}

void TMarketListForm::ShowPositions(bool shown) {
    FList->SetShowPosition(shown);
    ShowPositionColumns(shown);
}

void TMarketListForm::ShowPositionColumns(bool shown) {
    for (Integer index = 0; index < View().GetColumnCount(); ++index) {
        TcxGridColumn& column = *View().GetColumn(index);
        const bool isPosition = column.GetTag() == MarketAttribute::LongPosition ||
                                column.GetTag() == MarketAttribute::ShortPosition;
        if (isPosition) column.SetVisible(shown);
    }
}

void TMarketListForm::FollowVisibleRows() {
    std::vector<Integer> rows;
    std::vector<String> symbols;
    const Integer top = View().TopRow();
    for (Integer offset = 0; offset < View().VisibleRowCount(); ++offset) {
        rows.push_back(View().RecordIndex(top + offset));
        symbols.push_back(FList->GetSymbol(rows.back()));
    }
    if (!FRows->TakeCleared() && symbols == FFollowedSymbols) return;
    FFollowedRows = std::move(rows);
    FFollowedSymbols = std::move(symbols);
    FList->ViewRecordChanged(FFollowedRows);
}

bool TMarketListForm::LastMove(Integer row, TPriceChangeState& state) {
    return FList->GetLastPriceMoveTick(View().RecordIndex(row), state);
}

bool TMarketListForm::ChangeDirection(Integer row, TPriceChangeState& state) {
    return FList->GetPriceChangeState(View().RecordIndex(row), MarketAttribute::LastPrice, state);
}

bool TMarketListForm::HasMarks(Integer attribute) const {
    return attribute == MarketAttribute::LastPrice || attribute == MarketAttribute::Change;
}

std::optional<TPriceChangeState> TMarketListForm::Mark(Integer row, Integer attribute) {
    if (Text(row, attribute) == FRows->EmptyText()) return {};
    TPriceChangeState state = pcsNone;
    const bool isKnown = attribute == MarketAttribute::LastPrice ? LastMove(row, state)
                                                                 : ChangeDirection(row, state);
    return isKnown ? std::optional(state) : std::nullopt;
}

std::optional<TPriceChangeState> TMarketListForm::TakeMove(Integer row, Integer attribute) {
    const auto* end = std::end(MovingAttributes);
    if (std::find(std::begin(MovingAttributes), end, attribute) == end) return {};
    TPriceChangeState state = pcsNone;
    const bool isKnown = FList->GetExtremeMove(View().RecordIndex(row), attribute, state);
    return isKnown ? std::optional(state) : std::nullopt;
}

} // namespace quorin
