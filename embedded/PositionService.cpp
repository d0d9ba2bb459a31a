#include "embedded/PositionService.h"

#include "embedded/MarketUniverse.h"
#include "embedded/PositionValuation.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/FieldNumbers.h"

#include <utility>

namespace quorin {

namespace {

// Exactly 0.0 is what closes a position.
bool IsListed(const TCustomPositionData& position) {
    return position.GetQuantity() != 0.0 || position.GetTodayBuyQty() != 0.0 ||
           position.GetTodaySellQty() != 0.0;
}

String MasterOf(const String& accountCode) {
    TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    const TCustomAccount* account =
        accounts != nullptr ? accounts->GetAccount(accountCode, /*Flag=*/false) : nullptr;
    return account != nullptr ? account->GetMasterAccount() : String();
}

} // namespace

TEmbeddedPositionAdapter::~TEmbeddedPositionAdapter() {
    for (const auto& item : FHoldings) FItems.Unsubscribe(item.Value.Item, &FFollower);
}

void TEmbeddedPositionAdapter::ChangePositionAccount(StringView Account,
                                                     const TDataCallbackEvent& Callback,
                                                     TObject* Owner, StringView PreviousAccount) {
    if (!PreviousAccount.empty()) FPositionCallbacks.Remove(PreviousAccount, Owner);
    if (!Account.empty()) FPositionCallbacks.Add(Account, Owner, Callback);
}

void TEmbeddedPositionAdapter::RemovePositionCallback(StringView Account, TObject* Owner) {
    FPositionCallbacks.Remove(Account, Owner);
}

void TEmbeddedPositionAdapter::AddPositionMarketDataCallback(const TDataCallbackEvent& Callback,
                                                             TObject* Owner) {
    FMarketDataCallbacks.Add(Owner, Callback);
}

void TEmbeddedPositionAdapter::RemovePositionMarketDataCallback(TObject* Owner) {
    FMarketDataCallbacks.Remove(Owner);
}

void TEmbeddedPositionAdapter::AddAggregatePositionCallback(StringView Account,
                                                            const TDataCallbackEvent& Callback,
                                                            TObject* Owner, Pointer) {
    FAggregateCallbacks.Add(Account, Owner, Callback);
}

void TEmbeddedPositionAdapter::RemoveAggregatePositionCallback(StringView Account, TObject* Owner) {
    FAggregateCallbacks.Remove(Account, Owner);
}

void TEmbeddedPositionAdapter::GetPositionList(StringView Account,
                                               TPositionDictionary& List) const {
    const TRecords* records = FAccounts.Find(Account);
    if (records == nullptr) return;
    for (const auto& item : *records) {
        if (IsListed(*item.Value)) List.AddOrSetValue(item.Key, item.Value.get());
    }
}

TCustomPositionData* TEmbeddedPositionAdapter::GetPosition(StringView Account,
                                                           StringView Symbol) const {
    TEmbeddedPositionData* record = FindRecord(Account, Symbol);
    return record != nullptr && IsListed(*record) ? record : nullptr;
}

Boolean TEmbeddedPositionAdapter::GetMarketValue(StringView Symbol, Double NetQuantity,
                                                 Double& Value) const {
    if (Symbol.empty()) return false;
    const TProductMarks marks = MarksOf(FItems.Item(Symbol));
    const Double price = NominalPrice(marks);
    if (price == 0.0) return false;
    Value = NetQuantity * price * UnitSize(marks);
    return true;
}

TEmbeddedPositionData& TEmbeddedPositionAdapter::FeedPosition(StringView account, StringView symbol,
                                                              const TPositionFigures& figures) {
    TEmbeddedPositionData& record = Store(account, symbol, figures);
    FChanges.Obtain(account).AddOrSetValue(symbol, &record);
    FFed.Add(&record);
    return record;
}

TEmbeddedPositionData& TEmbeddedPositionAdapter::Store(StringView account, StringView symbol,
                                                       const TPositionFigures& figures) {
    auto& record = FAccounts.Obtain(account).Obtain(symbol);
    THolding& holding = Hold(symbol);
    if (record == nullptr) {
        record = std::make_unique<TEmbeddedPositionData>(symbol, account);
        holding.Records.Add(record.get());
    }
    record->SetFigures(figures.FollowsPrice ? Valued(figures, *holding.Item) : figures);
    return *record;
}

TEmbeddedPositionData* TEmbeddedPositionAdapter::FindRecord(StringView account,
                                                            StringView symbol) const {
    const TRecords* records = FAccounts.Find(account);
    const auto* record = records != nullptr ? records->Find(symbol) : nullptr;
    return record != nullptr ? record->get() : nullptr;
}

const TPositionFigures* TEmbeddedPositionAdapter::FindFigures(StringView account,
                                                              StringView symbol) const {
    const TEmbeddedPositionData* record = FindRecord(account, symbol);
    return record != nullptr ? &record->Figures() : nullptr;
}

TPositionFigures TEmbeddedPositionAdapter::FiguresOf(StringView account, StringView symbol) const {
    if (const TPositionFigures* known = FindFigures(account, symbol)) return *known;
    TPositionFigures figures;
    figures.FollowsPrice = true;
    if (const TEmbeddedMarketData* product = FItems.Item(symbol).Record()) {
        figures.ProdType = product->GetProductType();
        if (product->Exchange().IsSided) figures.Side = TPositionSide::Long;
    }
    return figures;
}

bool TEmbeddedPositionAdapter::IsSided(StringView account, StringView symbol) const {
    return FiguresOf(account, symbol).Side != TPositionSide::Net;
}

void TEmbeddedPositionAdapter::FollowPrice(StringView account, StringView symbol) {
    const TEmbeddedPositionData* record = FindRecord(account, symbol);
    if (record == nullptr || record->Figures().FollowsPrice) return;
    TPositionFigures figures = record->Figures();
    quorin::FollowPrice(figures);
    FeedPosition(account, symbol, figures);
}

void TEmbeddedPositionAdapter::BookTrade(StringView account, StringView symbol,
                                         const TPositionTrade& trade) {
    TPositionFigures figures = FiguresOf(account, symbol);
    quorin::BookTrade(figures, trade);
    FChanges.Obtain(account).AddOrSetValue(symbol, &Store(account, symbol, figures));
}

void TEmbeddedPositionAdapter::Pend(StringView account, StringView symbol, bool isBuy,
                                    Double quantity) {
    TPositionFigures figures = FiguresOf(account, symbol);
    Double& pending = isBuy ? figures.TodayPendBuyQty : figures.TodayPendSellQty;
    pending = WithoutDust(pending + quantity);
    TEmbeddedPositionData& record = Store(account, symbol, figures);
    (IsListed(record) ? FChanges : FPended).Obtain(account).AddOrSetValue(symbol, &record);
}

TEmbeddedPositionAdapter::THolding& TEmbeddedPositionAdapter::Hold(StringView symbol) {
    THolding& holding = FHoldings.Obtain(symbol);
    if (holding.Item == nullptr) {
        holding.Item = &FItems.Item(symbol);
        FItems.Subscribe(holding.Item, MakeEvent<&TEmbeddedPositionAdapter::ItemsUpdate>(this),
                         &FFollower);
    }
    return holding;
}

TPositionFigures TEmbeddedPositionAdapter::Valued(TPositionFigures figures,
                                                  TEmbeddedSubItem& item) {
    figures.Ticker = &item;
    ValuePosition(figures, MarksOf(item));
    return figures;
}

void TEmbeddedPositionAdapter::ItemsUpdate(Pointer Sender, Pointer) {
    const auto& changed = *static_cast<const TSubItemDictionary*>(Sender);
    if (changed.Count() < FHoldings.Count()) {
        for (const auto& item : changed) {
            if (const THolding* holding = FHoldings.Find(item.Key)) Move(*holding);
        }
        return;
    }
    for (const auto& item : FHoldings) {
        if (changed.ContainsKey(item.Key)) Move(item.Value);
    }
}

void TEmbeddedPositionAdapter::Move(const THolding& holding) {
    for (TEmbeddedPositionData* record : holding.Records) {
        if (!IsListed(*record)) continue;
        const TPositionFigures& figures = record->Figures();
        if (figures.FollowsPrice) record->SetFigures(Valued(figures, *holding.Item));
        FMoved.Obtain(record->GetAccount()).AddOrSetValue(record->GetSymbol(), record);
    }
}

void TEmbeddedPositionAdapter::FeedPriceMove(StringView symbol) {
    if (const THolding* holding = FHoldings.Find(symbol)) Move(*holding);
}

void TEmbeddedPositionAdapter::Deliver() {
    const TDeliverySerial serial = FDeliveries.Begin();
    TChanges changes = std::exchange(FChanges, {});
    TChanges moved = std::exchange(FMoved, {});
    FPended.Clear();
    DeliverChanges(serial, changes);
    DeliverToMasters(serial, changes);
    if (moved.IsEmpty()) return;
    TAccountPositionDictionary sender;
    for (const auto& item : moved) sender.Add(item.Key, &item.Value);
    FMarketDataCallbacks.Deliver(serial, Pointer(&sender), Pointer());
}

void TEmbeddedPositionAdapter::DeliverChanges(TDeliverySerial serial, TChanges& changes) {
    for (const auto& item : changes) {
        TAccountPositionDictionary sender;
        sender.Add(item.Key, &item.Value);
        FPositionCallbacks.Deliver(serial, item.Key, Pointer(&sender), Pointer());
    }
}

void TEmbeddedPositionAdapter::DeliverToMasters(TDeliverySerial serial, TChanges& changes) {
    TDictionary<String, TAccountPositionDictionary> byMaster;
    for (const auto& item : changes) {
        const String master = MasterOf(item.Key);
        if (!master.empty()) byMaster.Obtain(master).Add(item.Key, &item.Value);
    }
    for (const auto& item : byMaster) {
        FAggregateCallbacks.Deliver(serial, item.Key, Pointer(&item.Value), Pointer());
    }
}

Integer TEmbeddedPositionAdapter::RegistrationCount() const {
    return FPositionCallbacks.Count() + FAggregateCallbacks.Count() + FMarketDataCallbacks.Count();
}

} // namespace quorin
