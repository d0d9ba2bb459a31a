#include "viewdata/position/PositionDataControl.h"

#include "platform/rtl/Text.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/Settings.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/OrderAdapter.h"
#include "viewdata/services/PositionAdapter.h"
#include "viewdata/services/SubscribeAdapter.h"

namespace quorin {

namespace {

// A row's product uses one of the tick tables.
Boolean UsesSpread(const TCustomPositionData& record, const TSpreadDictionary& spreads) {
    const TCustomSubItem* item = record.GetTicker();
    if (item == nullptr) {
        item = TCustomSubscribeAdapter::GetInstance()->GetSubItem(record.GetSymbol(), LiveDataType,
                                                                  /*Flag=*/true);
    }
    return item != nullptr && spreads.ContainsKey(item->FieldText(Field::SpreadCode));
}

// Exactly 0.0: the smallest quantity keeps its row.
Boolean IsOpen(const TCustomPositionData& record) {
    return record.GetQuantity() != 0.0;
}

} // namespace

TCustomPositionDataControl::TCustomPositionDataControl(TComponent* AOwner)
    : TCustomDataControl(AOwner), FComparer(std::make_unique<TCustomComparer>()) {
    if (TCustomOrderAdapter* orders = TCustomOrderAdapter::GetInstance()) {
        FMyOrder = orders->CreateClientOrder();
    }
    FClosePositionConfirmation = ReadFlag(ConfigKey::ConfirmationClosePosition);
    TCustomPositionAdapter::GetInstance()->AddPositionMarketDataCallback(
        MakeEvent<&TCustomPositionDataControl::PositionMarketDataUpdate>(this), this);
    TCustomMarketAdapter::GetInstance()->AddSpreadListener(
        MakeEvent<&TCustomPositionDataControl::SpreadUpdate>(this), this);
    Currencies().AddCurrencyRatioCallback(
        MakeEvent<&TCustomPositionDataControl::CurrencyRatioUpdate>(this), this);
    ReadSettlementMarkets();
    FT1SettlementIncludeDWQty = ReadFlag(ConfigKey::IncludeStockSIMaxSell);
    FShowNegForShortPos = ReadFlag(ConfigKey::ShowNegForShortPos);
}

TCustomPositionDataControl::~TCustomPositionDataControl() {
    OnDataChanged = nullptr;
    TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    positions.RemovePositionMarketDataCallback(this);
    positions.RemovePositionCallback(FAccount, this);
    TCustomMarketAdapter::GetInstance()->RemoveSpreadListener(this);
    Currencies().RemoveCurrencyRatioCallback(this);
    FDataList.Clear();
    FDataDictionary.Clear();
}

void TCustomPositionDataControl::ReadSettlementMarkets() {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    const String markets = config.ReadString(config.GetCurrentSection(), ConfigKey::T1Market);
    for (const StringView piece : Split(markets, u',')) {
        const String code = UpperCase(Trim(piece));
        FT1SettelementMarket.AddOrSetValue(code, code);
    }
}

void TCustomPositionDataControl::ConfigUpdate(Pointer Sender, Pointer Data) {
    TCustomDataControl::ConfigUpdate(Sender, Data);
    FClosePositionConfirmation = ReadFlag(ConfigKey::ConfirmationClosePosition);
    FAvgPriceMode = ReadNumber(ConfigKey::PVAvgPriceMode);
}

Boolean TCustomPositionDataControl::GetRowValue(Integer, Pointer&) {
    return false;
}

Boolean TCustomPositionDataControl::GetColValue(Integer, Pointer&) {
    return false;
}

TCustomPositionData* TCustomPositionDataControl::RecordAt(Integer RecordIndex) const {
    if (!FDataList.Has(RecordIndex)) return nullptr;
    TCustomPositionData* const* record = FDataDictionary.Find(FDataList[RecordIndex]);
    return record != nullptr ? *record : nullptr;
}

void TCustomPositionDataControl::SetAccount(StringView Account) {
    if (FAccount == Account) return;
    const String account(Account); // the text may belong to what goes now
    FDataList.Clear();
    FDataDictionary.Clear();
    TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    const std::uint32_t move = ++FMoves;
    positions.ChangePositionAccount(
        account, MakeEvent<&TCustomPositionDataControl::PositionUpdate>(this), this, FAccount);
    if (move != FMoves) { // moved on from inside that call: the later move counts
        if (FAccount != account) positions.RemovePositionCallback(account, this);
        return;
    }
    FAccount = account;
    // What an update inside that call has brought back belongs to the account before.
    FDataList.Clear();
    FDataDictionary.Clear();
    TPositionDictionary held;
    positions.GetPositionList(FAccount, held);
    for (const auto& [symbol, record] : held) {
        if (record != nullptr && IsOpen(*record)) TakeIn(symbol, record);
    }
    FDataList.Sort([this](const String& left, const String& right) {
        return FComparer->Compare(left, right) < 0;
    });
    RowsMoved();
    FireDataChanged();
}

Boolean TCustomPositionDataControl::TakeIn(const String& symbol, TCustomPositionData* record) {
    if (!FDataDictionary.Add(symbol, record)) return false;
    FDataList.Add(symbol);
    return true;
}

// Searched from the end: what is passed on the way is what moves up when the row goes.
Boolean TCustomPositionDataControl::Drop(StringView symbol) {
    if (!FDataDictionary.Remove(symbol)) return false;
    Integer row = FDataList.Count() - 1;
    while (row >= 0 && !SameUnits(FDataList[row], symbol)) --row;
    if (row >= 0) FDataList.Delete(row);
    RowsMoved();
    return true;
}

void TCustomPositionDataControl::NameRows(const TPositionDictionary* positions,
                                          TChangedRows& rows) {
    if (positions == nullptr) {
        rows.NameNone();
        return;
    }
    for (const auto& item : *positions) {
        if (FDataDictionary.ContainsKey(item.Key)) rows.Add(FRowIndex.Find(FDataList, item.Key));
    }
}

void TCustomPositionDataControl::PositionUpdate(Pointer Sender, Pointer) {
    const TPositionDictionary* changes = ChangesOf(Sender, FAccount);
    if (changes == nullptr) return;
    Boolean seen = false;
    Boolean rowsDiffer = false;
    for (const auto& [symbol, record] : *changes) {
        seen = true;
        if (record == nullptr) continue;
        rowsDiffer |= IsOpen(*record) ? TakeIn(symbol, record) : Drop(symbol);
    }
    if (!seen) return;
    FireRowsChanged([&](TChangedRows& rows) { NameRows(rowsDiffer ? nullptr : changes, rows); });
}

void TCustomPositionDataControl::PositionMarketDataUpdate(Pointer Sender, Pointer) {
    if (FDataList.IsEmpty() || Sender == nullptr) return;
    const auto& moved = *static_cast<const TAccountPositionDictionary*>(Sender);
    if (!moved.ContainsKey(FAccount)) return;
    FireRowsChanged([&](TChangedRows& rows) { NameRows(*moved.Find(FAccount), rows); });
}

void TCustomPositionDataControl::SpreadUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr) return;
    const auto& spreads = *static_cast<const TSpreadDictionary*>(Sender);
    // By a copy of the symbols: a look-up may tell of changes.
    for (const String& symbol : FDataDictionary.Keys()) {
        TCustomPositionData* const* record = FDataDictionary.Find(symbol);
        if (record == nullptr || *record == nullptr || !UsesSpread(**record, spreads)) continue;
        FireDataChanged();
        return;
    }
}

void TCustomPositionDataControl::CurrencyRatioUpdate(Pointer Sender, Pointer) {
    if (Sender != nullptr && !FConvertCurrency.empty()) FireDataChanged();
}

void TCustomPositionDataControl::SetConvertCurrency(StringView Currency) {
    if (FConvertCurrency == Currency) return;
    FConvertCurrency = Currency;
    FireDataChanged();
}

Boolean TCustomPositionDataControl::AddToFavorite(Integer RecordIndex) {
    const TCustomPositionData* record = RecordAt(RecordIndex);
    if (record == nullptr) return false;
    const String symbol = record->GetSymbol();
    return TCustomMarketAdapter::GetInstance()->AddFavorite(symbol);
}

Boolean TCustomPositionDataControl::Watchable(Integer RecordIndex) {
    const TCustomPositionData* record = RecordAt(RecordIndex);
    if (record == nullptr || record->GetSymbol().empty()) return false;
    return !TCustomMarketAdapter::GetInstance()->IsFavorite(record->GetSymbol());
}

} // namespace quorin
