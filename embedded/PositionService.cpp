#include "embedded/PositionService.h"

#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <utility>

namespace quorin {

namespace {

constexpr Double WholeUnit = 1.0; // where a product has no contract size

// Exactly 0.0 is what closes a position.
bool IsOpen(const TCustomPositionData& position) {
    return position.GetQuantity() != 0.0;
}

String MasterOf(const String& accountCode) {
    TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    const TCustomAccount* account =
        accounts != nullptr ? accounts->GetAccount(accountCode, /*Flag=*/false) : nullptr;
    return account != nullptr ? account->GetMasterAccount() : String();
}

} // namespace

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
        if (IsOpen(*item.Value)) List.AddOrSetValue(item.Key, item.Value.get());
    }
}

TCustomPositionData* TEmbeddedPositionAdapter::GetPosition(StringView Account,
                                                           StringView Symbol) const {
    const TRecords* records = FAccounts.Find(Account);
    const auto* record = records != nullptr ? records->Find(Symbol) : nullptr;
    return record != nullptr && IsOpen(**record) ? record->get() : nullptr;
}

Boolean TEmbeddedPositionAdapter::GetMarketValue(StringView Symbol, Double NetQuantity,
                                                 Double& Value) const {
    TCustomSubscribeAdapter* items = TCustomSubscribeAdapter::GetInstance();
    if (items == nullptr || Symbol.empty()) return false;
    const TCustomSubItem* item = items->GetSubItem(Symbol, LiveDataType, /*Flag=*/false);
    Double price = item->GetFieldDouble(Field::LastPrice);
    if (price == 0.0) price = item->GetFieldDouble(Field::PreviousClose);
    if (price == 0.0) return false;
    const Double contractSize = item->GetFieldDouble(Field::ContractSize);
    Value = NetQuantity * price * (contractSize > 0.0 ? contractSize : WholeUnit);
    return true;
}

TEmbeddedPositionData& TEmbeddedPositionAdapter::FeedPosition(StringView account, StringView symbol,
                                                              const TPositionFigures& figures) {
    auto& record = FAccounts.Obtain(account).Obtain(symbol);
    if (record == nullptr) record = std::make_unique<TEmbeddedPositionData>(symbol, account);
    record->SetFigures(figures);
    FChanges.Obtain(account).AddOrSetValue(symbol, record.get());
    return *record;
}

void TEmbeddedPositionAdapter::FeedPriceMove(StringView symbol) {
    for (const auto& item : FAccounts) {
        const auto* record = item.Value.Find(symbol);
        if (record != nullptr && IsOpen(**record)) {
            FMoved.Obtain(item.Key).AddOrSetValue(symbol, record->get());
        }
    }
}

void TEmbeddedPositionAdapter::Deliver() {
    TChanges changes = std::exchange(FChanges, {});
    TChanges moved = std::exchange(FMoved, {});
    DeliverChanges(changes);
    DeliverToMasters(changes);
    if (moved.IsEmpty()) return;
    TAccountPositionDictionary sender;
    for (const auto& item : moved) sender.Add(item.Key, &item.Value);
    FMarketDataCallbacks.Deliver(Pointer(&sender), Pointer());
}

void TEmbeddedPositionAdapter::DeliverChanges(TChanges& changes) {
    for (const auto& item : changes) {
        TAccountPositionDictionary sender;
        sender.Add(item.Key, &item.Value);
        FPositionCallbacks.Deliver(item.Key, Pointer(&sender), Pointer());
    }
}

void TEmbeddedPositionAdapter::DeliverToMasters(TChanges& changes) {
    TDictionary<String, TAccountPositionDictionary> byMaster;
    for (const auto& item : changes) {
        const String master = MasterOf(item.Key);
        if (!master.empty()) byMaster.Obtain(master).Add(item.Key, &item.Value);
    }
    for (const auto& item : byMaster) {
        FAggregateCallbacks.Deliver(item.Key, Pointer(&item.Value), Pointer());
    }
}

Integer TEmbeddedPositionAdapter::RegistrationCount() const {
    return FPositionCallbacks.Count() + FAggregateCallbacks.Count() + FMarketDataCallbacks.Count();
}

} // namespace quorin
