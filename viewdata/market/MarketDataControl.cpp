#include "viewdata/market/MarketDataControl.h"

#include "platform/rtl/ScopedValue.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/LoginCtrl.h"
#include "viewdata/services/OrderAdapter.h"
#include "viewdata/services/PositionAdapter.h"

#include <utility>
#include <vector>

namespace quorin {

namespace {

Boolean ReadOrderConfirmation() {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    return config.ReadBool(config.GetCurrentSection(), ConfigKey::ConfirmationPlaceOrd);
}

} // namespace

TCustomMarketDataControl::TCustomMarketDataControl(TComponent* AOwner)
    : TCustomDataControl(AOwner), FAddOrderConfirmation(ReadOrderConfirmation()) {
    TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    market.AddFavoriteListener(
        MakeEvent<&TCustomMarketDataControl::FavoriteMarketDataCountUpdate>(this), this);
    market.AddSpreadListener(MakeEvent<&TCustomMarketDataControl::SpreadUpdate>(this), this);
    if (TCustomOrderAdapter* orders = TCustomOrderAdapter::GetInstance()) {
        FMyOrder = orders->CreateClientOrder();
    }
}

TCustomMarketDataControl::~TCustomMarketDataControl() {
    OnDataChanged = nullptr;
    TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    market.RemoveFavoriteListener(this);
    market.RemoveSpreadListener(this);
    // Also after a logout: a registration must not outlive its owner.
    TCustomPositionAdapter::GetInstance()->RemovePositionCallback(FAccount, this);
    ClearAll();
}

void TCustomMarketDataControl::ConfigUpdate(Pointer Sender, Pointer Data) {
    TCustomDataControl::ConfigUpdate(Sender, Data);
    FAddOrderConfirmation = ReadOrderConfirmation();
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    const Integer bondStyle =
        config.ReadInteger(config.GetCurrentSection(), ConfigKey::DenominatorModeValue);
    if (bondStyle == FBondStyle) return;
    FBondStyle = bondStyle;
    Changed();
}

void TCustomMarketDataControl::SetExchange(StringView Exchange) {
    if (FExchange == Exchange) return;
    FExchange = Exchange;
    FIsFavoriteExchange = FExchange == FavoriteExchange;
}

void TCustomMarketDataControl::SetCategory(Integer CategoryID) {
    FCategoryID = CategoryID;
}

void TCustomMarketDataControl::SetExchangeAndCategory(StringView Exchange, Integer CategoryID) {
    const TLifeline::TWatch watch(FLifeline);
    SetExchange(Exchange); // a descendant's may signal
    if (!watch.IsAlive()) return;
    SetCategory(CategoryID);
    InitData();
}

void TCustomMarketDataControl::InitData() {
    if (FIsFavoriteExchange) {
        InitFavoriteData();
        return;
    }
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    if (!market.IsMarketDataReady()) return;
    ClearAll();
    if (!FExchange.empty()) {
        InitExchange(FExchange);
    } else if (HasCategory()) {
        for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
            InitExchange(market.GetExchangeCode(index));
        }
    }
    FireDataChanged();
}

void TCustomMarketDataControl::InitExchange(StringView exchange) {
    if (exchange.empty()) return;
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    for (Integer index = 0; index < market.GetSeriesCount(exchange); ++index) {
        const String& code = market.GetSeriesCode(exchange, index);
        const TCustomSeriesData* series = market.FindSeries(code);
        if (series == nullptr) continue;
        if (HasCategory() && series->GetCategoryID() != FCategoryID) continue;
        const Integer count = market.GetMarketDataCount(exchange, code);
        for (Integer row = 0; row < count; ++row) {
            if (TCustomMarketData* data = market.GetMarketDataAt(exchange, code, row)) {
                AddMarketData(data);
            }
        }
    }
}

void TCustomMarketDataControl::InitFavoriteData() {
    ClearAll();
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    for (Integer index = 0; index < market.GetFavoriteCount(); ++index) {
        if (TCustomMarketData* data = market.GetFavoriteMarketData(index)) {
            AddMarketData(data);
            continue;
        }
        const String& symbol = market.GetFavoriteSymbol(index);
        if (!symbol.empty() && !FDataList.Contains(symbol)) FDataList.Add(symbol);
    }
    FireDataChanged();
}

void TCustomMarketDataControl::AddMarketData(TCustomMarketData* Data) {
    if (Data == nullptr) return;
    const String& symbol = Data->GetSymbol();
    if (!FDataDictionary.Add(symbol, Data)) return;
    // Only rows without a record can have the symbol already; without such rows nobody searches.
    const Boolean hasRecordlessRows = FDataList.Count() != FDataDictionary.Count() - 1;
    if (!hasRecordlessRows || !FDataList.Contains(symbol)) FDataList.Add(symbol);
}

void TCustomMarketDataControl::ClearAll() {
    ReleaseSubscribedData();
    FDataList.Clear();
    FRowIndex.Clear();
    FDataDictionary.Clear();
    FLastMoveTick.Clear();
    ReleaseSubscribedSpanData();
}

// Both releases take the dictionary out first: what a service's answer subscribes meanwhile is in
// a new one and is left alone.
void TCustomMarketDataControl::ReleaseSubscribedData() {
    const auto released = std::exchange(FSubscribedDataList, {});
    for (const auto& [symbol, item] : released) {
        if (item == nullptr || FSubscribedDataList.ContainsKey(symbol)) continue;
        TCustomSubscribeAdapter::GetInstance()->Unsubscribe(item, this);
        item->RemoveRealtimeListener(this);
    }
}

void TCustomMarketDataControl::ReleaseSubscribedSpanData() {
    const auto released = std::exchange(FSubscribedSpanDataList, {});
    for (const auto& [key, item] : released) {
        if (item == nullptr || FSubscribedSpanDataList.ContainsKey(key)) continue;
        TCustomSubscribeAdapter::GetInstance()->Unsubscribe(item, this);
    }
}

Boolean TCustomMarketDataControl::ViewRecordChanged(std::span<const Integer> Value) {
    ReleaseSubscribedData();
    TCustomSubscribeAdapter& feed = *TCustomSubscribeAdapter::GetInstance();
    for (const Integer index : Value) {
        if (!FDataList.Has(index)) continue;
        const String symbol = FDataList[index];
        if (FSubscribedDataList.ContainsKey(symbol)) continue;
        TCustomSubItem* item = feed.GetSubItem(symbol, LiveDataType, /*Flag=*/true);
        if (FIsBatchMode) {
            feed.Subscribe(item, MakeEvent<&TCustomMarketDataControl::SymbolUpdate>(this), this);
        } else {
            item->AddRealtimeListener(
                MakeEvent<&TCustomMarketDataControl::SymbolRealtimeUpdate>(this), this);
        }
        FSubscribedDataList.Add(symbol, item);
        RequestSpreadTable(*item);
    }
    return true;
}

// The tick table of a row is asked for as soon as its code is known, so that it is there when a
// price is to be moved; SpreadUpdate tells when it has come.
void TCustomMarketDataControl::RequestSpreadTable(const TCustomSubItem& item) {
    if (item.GetStatus() != ItemStatus::Ready) return;
    TBorrowed<String> code(FSpreadCode);
    item.GetFieldString(Field::SpreadCode, *code);
    if (!(*code).empty()) TCustomMarketAdapter::GetInstance()->FindSpreadTable(*code);
}

void TCustomMarketDataControl::MoveRecord(Integer FromRecordIndex, Integer ToRecordIndex) {
    if (!FDataList.Has(FromRecordIndex) || !FDataList.Has(ToRecordIndex)) return;
    if (FromRecordIndex == ToRecordIndex) return;
    FDataList.Move(FromRecordIndex, ToRecordIndex);
    FRowIndex.Clear();
    FireDataChanged();
}

void TCustomMarketDataControl::SymbolUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr) return;
    const auto& changed = *static_cast<const TSubItemDictionary*>(Sender);
    FetchAhead(changed);
    Boolean followed = false;
    for (const auto& [key, item] : changed) followed = UpdateSymbolMessage(item) || followed;
    if (!followed) return;
    FireRowsChanged([&](TChangedRows& rows) { NameFollowedRows(changed, rows); });
}

// The rows of a long list lie far apart in memory: what the batch will look up is asked for ahead.
void TCustomMarketDataControl::FetchAhead(const TSubItemDictionary& changed) const {
    if (FSubscribedDataList.Count() < FarTable) return;
    for (const TFetchStep step : FetchSteps) {
        for (const auto& [key, item] : changed) {
            const std::uint64_t hash = HashText(key);
            FSubscribedDataList.Fetch(step, hash);
            FLastPriceList.Fetch(step, hash);
            FLastMoveTick.Fetch(step, hash);
            FRowIndex.Fetch(step, FDataList, hash);
        }
    }
}

// What a batch says of rows that are not followed is left for the next time that all rows count.
void TCustomMarketDataControl::NameFollowedRows(const TSubItemDictionary& changed,
                                                TChangedRows& rows) {
    for (const auto& [key, item] : changed) {
        if (item == nullptr || !FSubscribedDataList.ContainsKey(item->GetKey())) continue;
        rows.Add(FRowIndex.Find(FDataList, item->GetKey()));
    }
}

void TCustomMarketDataControl::SymbolRealtimeUpdate(TObject* Sender) {
    TCustomSubItem* item = ObjectAs<TCustomSubItem>(Sender);
    if (item == nullptr || !UpdateSymbolMessage(item)) return;
    FireRowsChanged(
        [&](TChangedRows& rows) { rows.Add(FRowIndex.Find(FDataList, item->GetKey())); });
}

Boolean TCustomMarketDataControl::UpdateSymbolMessage(TCustomSubItem* Item) {
    if (Item == nullptr) return false;
    TCustomSubItem** followed = FSubscribedDataList.Find(Item->GetKey());
    if (followed == nullptr) return false;
    if (*followed == nullptr) *followed = Item;
    WidenExtents(*Item);
    TrackLastPrice(*Item); // first: the service's answer to the request may reload the list
    RequestSpreadTable(*Item);
    return true;
}

void TCustomMarketDataControl::SpreadUpdate(Pointer, Pointer) {
    FireDataChanged();
}

void TCustomMarketDataControl::SetAccount(StringView Account) {
    if (FAccount == Account) return;
    TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    if (accounts == nullptr || !accounts->IsAccountKnown(Account)) return;
    if (TCustomLoginCtrl::GetInstance()->IsLogin()) {
        TCustomPositionAdapter::GetInstance()->ChangePositionAccount(
            Account, MakeEvent<&TCustomMarketDataControl::PositionUpdate>(this), this, FAccount);
    } else {
        // What was registered before a logout would be out of reach once the account is another.
        TCustomPositionAdapter::GetInstance()->RemovePositionCallback(FAccount, this);
    }
    FAccount = Account;
    UpdateMonitoringPosition();
    TCustomOrderAdapter* orders = TCustomOrderAdapter::GetInstance();
    if (orders != nullptr && FMyOrder == nullptr) FMyOrder = orders->CreateClientOrder();
    FireDataChanged();
}

void TCustomMarketDataControl::SetShowPosition(Boolean Value) {
    if (FShowPosition == Value) return;
    FShowPosition = Value;
    UpdateMonitoringPosition();
}

void TCustomMarketDataControl::PositionUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr || !FMonitoringPosition) return;
    const auto& changed = *static_cast<const TAccountPositionDictionary*>(Sender);
    if (!changed.ContainsKey(FAccount)) return;
    FireRowsChanged([&](TChangedRows& rows) { NamePositions(changed, rows); });
}

// Most positions have no row here.
void TCustomMarketDataControl::NamePositions(const TAccountPositionDictionary& changed,
                                             TChangedRows& rows) {
    const TPositionDictionary* const* positions = changed.Find(FAccount);
    if (positions == nullptr || *positions == nullptr) {
        rows.NameNone();
        return;
    }
    for (const auto& item : **positions) {
        const Integer row = FRowIndex.Find(FDataList, item.Key);
        if (row >= 0 || FDataDictionary.ContainsKey(item.Key)) rows.Add(row);
    }
}

void TCustomMarketDataControl::FavoriteMarketDataCountUpdate(Pointer, Pointer) {
    if (!FIsFavoriteExchange) return;
    const Integer countBefore = FDataList.Count();
    const TList<String> symbols = FSubscribedDataList.Keys();
    const TLifeline::TWatch watch(FLifeline);
    InitFavoriteData();
    if (!watch.IsAlive()) return;
    if (FDataList.Count() != countBefore || symbols.IsEmpty()) return;
    std::vector<Integer> rows;
    for (const String& symbol : symbols) {
        const Integer row = FDataList.IndexOf(symbol);
        if (row >= 0) rows.push_back(row);
    }
    if (!rows.empty()) ViewRecordChanged(rows);
}

String TCustomMarketDataControl::GetSymbol(Integer RecordIndex) {
    return FDataList.Has(RecordIndex) ? FDataList[RecordIndex] : String();
}

} // namespace quorin
