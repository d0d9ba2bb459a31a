#include "terminal/forms/MarketWatchForm.h"

#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/AccountAdapter.h"

#include <utility>

namespace quorin {

namespace {
constexpr Integer EveryCategory = -1;
}

TMarketWatchForm::TMarketWatchForm() : FView(CreateComponent<TcxGridTableView>()) {
    auto control = CreateComponent<TMarketControl>();
    FControl = control.get();
    FSource = std::make_unique<TCustomGridDataSource>(std::move(control));
    FView->SetCustomDataSource(FSource.get());
    FView->SetOnGetCellText(MakeEvent<&TMarketWatchForm::GetCellText>(this));
    for (const TColumnInfo* info : *FControl->GetColList()) {
        FView->AddColumn(info->ID(), FControl->Caption(info->ID())).SetWidth(info->Width());
    }
    TCustomMarketAdapter::GetInstance()->AddExchangeListener(
        MakeEvent<&TMarketWatchForm::MarketChanged>(this), this);
    TCustomAccountAdapter::GetInstance()->AddAccountReadyCallback(
        MakeEvent<&TMarketWatchForm::AccountsReady>(this), this);
}

TMarketWatchForm::~TMarketWatchForm() {
    TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(this);
    TCustomAccountAdapter::GetInstance()->RemoveAccountReadyCallback(this);
}

void TMarketWatchForm::ShowMarket(StringView exchange) {
    const bool isReady = TCustomMarketAdapter::GetInstance()->IsMarketDataReady();
    FExchange = isReady ? StringView() : exchange;
    FControl->SetExchangeAndCategory(exchange, EveryCategory);
    FView->SetTopRow(0);
}

void TMarketWatchForm::MarketChanged(Pointer, Pointer) {
    if (!FExchange.empty()) ShowMarket(String(FExchange));
}

void TMarketWatchForm::ShowAccount(StringView account) {
    FAccount = account;
    FControl->SetShowPosition(true);
    FControl->SetAccount(account);
}

void TMarketWatchForm::AccountsReady(Pointer, Pointer) {
    FControl->SetAccount(FAccount);
}

void TMarketWatchForm::ShowSymbols(const TList<String>& symbols) {
    FControl->ClearAll();
    for (const String& symbol : symbols) {
        FControl->AddMarketData(TCustomMarketAdapter::GetInstance()->FindMarketData(symbol));
    }
    FControl->Changed();
    FView->SetTopRow(0);
}

void TMarketWatchForm::FollowVisibleRows() {
    std::vector<Integer> rows;
    std::vector<String> symbols;
    const Integer top = FView->TopRow();
    for (Integer offset = 0; offset < FView->VisibleRowCount(); ++offset) {
        rows.push_back(FView->RecordIndex(top + offset));
        symbols.push_back(FControl->GetSymbol(rows.back()));
    }
    if (!FControl->TakeCleared() && symbols == FFollowedSymbols) return;
    FFollowedRows = std::move(rows);
    FFollowedSymbols = std::move(symbols);
    FControl->ViewRecordChanged(FFollowedRows);
}

bool TMarketWatchForm::LastMove(Integer row, TPriceChangeState& state) {
    return FControl->GetLastPriceMoveTick(FView->RecordIndex(row), state);
}

bool TMarketWatchForm::ChangeDirection(Integer row, TPriceChangeState& state) {
    return FControl->GetPriceChangeState(FView->RecordIndex(row), MarketAttribute::LastPrice,
                                         state);
}

String TMarketWatchForm::Symbol(Integer row) {
    return FControl->GetSymbol(FView->RecordIndex(row));
}

bool TMarketWatchForm::RowStillShows(Integer row, StringView symbol) {
    const Integer record = FView->RecordIndex(row);
    return record != NoRow &&
           FControl->GetValue(record, MarketAttribute::SymbolCode) == Variant(symbol);
}

void TMarketWatchForm::GetCellText(Integer record, TcxCustomGridTableItem& column, String& text) {
    text = FControl->GetDisplayValue(record, column.GetTag());
}

} // namespace quorin
