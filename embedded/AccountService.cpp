#include "embedded/AccountService.h"

#include "embedded/CurrencyService.h"
#include "platform/rtl/Text.h"

#include <utility>

namespace quorin {

namespace {

String CustomValueKey(StringView section, StringView key) {
    return String(section) + u'\n' + String(key);
}

TEmbeddedAccountData* FindBalance(const TBalanceRecords& records, StringView currency) {
    const auto* record = records.Find(currency);
    return record != nullptr ? record->get() : nullptr;
}

} // namespace

void TEmbeddedAccountAdapter::ChangeAccountCallback(StringView Account,
                                                    const TDataCallbackEvent& Callback,
                                                    TObject* Owner, StringView PreviousAccount) {
    if (!PreviousAccount.empty()) FAccountCallbacks.Remove(PreviousAccount, Owner);
    if (!Account.empty()) FAccountCallbacks.Add(Account, Owner, Callback);
}

void TEmbeddedAccountAdapter::RemoveAccountCallback(StringView Account, TObject* Owner) {
    FAccountCallbacks.Remove(Account, Owner);
}

void TEmbeddedAccountAdapter::AddAccountInfoLoadCallback(const TDataCallbackEvent& Callback,
                                                         TObject* Owner) {
    FInfoLoadCallbacks.Add(Owner, Callback);
}

void TEmbeddedAccountAdapter::RemoveAccountInfoLoadCallback(TObject* Owner) {
    FInfoLoadCallbacks.Remove(Owner);
}

Integer TEmbeddedAccountAdapter::GetAccountCount() const {
    return FReady ? FAccountList.Count() : 0;
}

Boolean TEmbeddedAccountAdapter::IsAccountKnown(StringView Account) const {
    return FReady && FAccounts.ContainsKey(Account);
}

void TEmbeddedAccountAdapter::AddSubAccountCallback(StringView Account,
                                                    const TDataCallbackEvent& Callback,
                                                    TObject* Owner, Pointer) {
    FSubAccountCallbacks.Add(Account, Owner, Callback);
}

void TEmbeddedAccountAdapter::RemoveSubAccountCallback(StringView Account, TObject* Owner) {
    FSubAccountCallbacks.Remove(Account, Owner);
}

void TEmbeddedAccountAdapter::AddAllAccountCallback(const TDataCallbackEvent& Callback,
                                                    TObject* Owner) {
    FAllAccountCallbacks.Add(Owner, Callback);
}

void TEmbeddedAccountAdapter::RemoveAllAccountCallback(TObject* Owner) {
    FAllAccountCallbacks.Remove(Owner);
}

void TEmbeddedAccountAdapter::AddAccountReadyCallback(const TDataCallbackEvent& Callback,
                                                      TObject* Owner) {
    FReadyCallbacks.Add(Owner, Callback);
}

void TEmbeddedAccountAdapter::RemoveAccountReadyCallback(TObject* Owner) {
    FReadyCallbacks.Remove(Owner);
}

TCustomAccount* TEmbeddedAccountAdapter::GetAccountByIndex(Integer Index) const {
    return Index >= 0 && Index < GetAccountCount() ? FAccountList[Index] : nullptr;
}

TEmbeddedAccount* TEmbeddedAccountAdapter::Find(StringView account) const {
    const auto* record = FAccounts.Find(account);
    return record != nullptr ? record->get() : nullptr;
}

TCustomAccount* TEmbeddedAccountAdapter::GetAccount(StringView Account, Boolean Flag) {
    if (!FReady) return nullptr;
    TEmbeddedAccount* account = Find(Account);
    if (Flag && account != nullptr && account->HasLateDetails() && FAwaited.IndexOf(account) < 0) {
        FAwaited.Add(account);
    }
    return account;
}

void TEmbeddedAccountAdapter::RequestAccountList(String&, Boolean Flag) {
    if (Flag && FReady) FTellReady = true;
}

void TEmbeddedAccountAdapter::GetSubAccountList(StringView Account,
                                                TAccountDictionary& List) const {
    if (!FReady || Account.empty()) return;
    for (TEmbeddedAccount* account : FAccountList) {
        if (account->GetMasterAccount() == Account) {
            List.AddOrSetValue(account->GetAccount(), account);
        }
    }
}

String TEmbeddedAccountAdapter::FindAccountByText(StringView Text) const {
    const StringView typed = Trim(Text);
    if (!FReady || typed.empty()) return {};
    if (IsAccountKnown(typed)) return String(typed);
    for (const TEmbeddedAccount* account : FAccountList) {
        if (SameText(account->GetAccount(), typed)) return account->GetAccount();
    }
    for (const TEmbeddedAccount* account : FAccountList) {
        if (SameText(account->GetAccountTag(), typed)) return account->GetAccount();
    }
    return {};
}

String TEmbeddedAccountAdapter::GetCustomAccountValue(StringView Section, StringView Key) const {
    const String* value = FCustomValues.Find(CustomValueKey(Section, Key));
    return value != nullptr ? *value : String();
}

TCustomAccountData* TEmbeddedAccountAdapter::GetSubAccountData(StringView Account,
                                                               StringView Currency) const {
    const TEmbeddedAccount* account = FReady ? Find(Account) : nullptr;
    if (account == nullptr || account->GetAccountType() != AccountType::SummedByService) {
        return nullptr;
    }
    const TBalanceRecords* records = FSummedRecords.Find(Account);
    return records != nullptr ? FindBalance(*records, Currency) : nullptr;
}

void TEmbeddedAccountAdapter::AddSubAccountLoadCallback(const TDataCallbackEvent& Callback,
                                                        TObject* Owner) {
    FSubAccountLoadCallbacks.Add(Owner, Callback);
}

void TEmbeddedAccountAdapter::RemoveSubAccountLoadCallback(TObject* Owner) {
    FSubAccountLoadCallbacks.Remove(Owner);
}

void TEmbeddedAccountAdapter::FeedAccount(StringView account, const TAccountDetails& details) {
    if (account.empty()) return;
    auto& record = FAccounts.Obtain(account);
    const bool isNew = record == nullptr;
    if (isNew) {
        record = std::make_unique<TEmbeddedAccount>(account, FNumbers);
        FAccountList.Add(record.get());
        ++FRecordsVersion;
    }
    const bool joins =
        !details.MasterAccount.empty() && record->GetMasterAccount() != details.MasterAccount;
    if (record->GetMasterAccount() != details.MasterAccount) NoteLeft(*record);
    if (record->HasLateDetails() || (isNew && FDetailsLate)) {
        record->SetDetailsLate(details);
    } else {
        record->SetDetails(details);
    }
    if (joins) FNewSubAccounts.AddOrSetValue(account, record.get());
    FChanged.AddOrSetValue(account, record.get());
}

// Its master hears of it as well, whoever it belongs to when it is told.
void TEmbeddedAccountAdapter::NoteLeft(TEmbeddedAccount& account) {
    const String& master = account.GetMasterAccount();
    if (!master.empty()) FLeftMasters.Obtain(master).AddOrSetValue(account.GetAccount(), &account);
}

bool TEmbeddedAccountAdapter::DropAccount(StringView account) {
    TDroppedAccount dropped{FAccounts.Extract(account), FSummedRecords.Extract(account)};
    TEmbeddedAccount* record = dropped.Account.get();
    if (record == nullptr) return false;
    const auto isRecord = [record](const TEmbeddedAccount* other) { return other == record; };
    FAccountList.RemoveAll(isRecord);
    ++FRecordsVersion;
    FAwaited.RemoveAll(isRecord);
    FFedBalances.Remove(record->GetAccount());
    FNewSubAccounts.Remove(record->GetAccount());
    FChanged.AddOrSetValue(record->GetAccount(), record);
    NoteLeft(*record);
    FDropped.Add(std::move(dropped));
    return true;
}

bool TEmbeddedAccountAdapter::FeedBalance(StringView account, StringView currency,
                                          const TBalanceFigures& figures) {
    TEmbeddedAccount* record = Find(account);
    if (record == nullptr) return false;
    SetBalance(*record, currency, figures);
    FFedBalances.AddOrSetValue(account, record);
    FChanged.AddOrSetValue(account, record);
    return true;
}

void TEmbeddedAccountAdapter::SetBalance(TEmbeddedAccount& account, StringView currency,
                                         const TBalanceFigures& figures) {
    if (!account.SetBalance(currency, figures)) return;
    ++FRecordsVersion;
    if (!currency.empty()) FMultiCurrencies.TouchMultiCurrencyInfo();
}

bool TEmbeddedAccountAdapter::FeedSubAccountData(StringView account, StringView currency,
                                                 const TBalanceFigures& figures) {
    TEmbeddedAccount* owner = Find(account);
    if (owner == nullptr) return false;
    auto& record = FSummedRecords.Obtain(account).Obtain(currency);
    if (record == nullptr)
        record = std::make_unique<TEmbeddedAccountData>(account, currency, FNumbers);
    record->SetFigures(figures);
    FFedBalances.AddOrSetValue(account, owner);
    FChanged.AddOrSetValue(account, owner);
    return true;
}

TList<TEmbeddedAccount*> TEmbeddedAccountAdapter::TakeFedBalances() {
    TList<TEmbeddedAccount*> accounts;
    for (const auto& item : FFedBalances) accounts.Add(item.Value);
    FFedBalances.Clear();
    return accounts;
}

TBalanceRecords* TEmbeddedAccountAdapter::SummedRecords(const TEmbeddedAccount& account) {
    return FSummedRecords.Find(account.GetAccount());
}

void TEmbeddedAccountAdapter::SettleBalances(TEmbeddedAccount& account) {
    account.EachBalance([](TEmbeddedAccountData& record) { record.Settle(); });
    TBalanceRecords* summed = SummedRecords(account);
    if (summed == nullptr) return;
    for (const auto& item : *summed) item.Value->Settle();
}

Double TEmbeddedAccountAdapter::FedCash(const TEmbeddedAccount& account,
                                        StringView currency) const {
    const TEmbeddedAccountData* record = account.FindBalance(currency);
    return record != nullptr ? record->Fed().Value991 : 0.0;
}

void TEmbeddedAccountAdapter::MoveBalance(TEmbeddedAccount& account, StringView currency,
                                          const TBalanceMoves& moves) {
    TEmbeddedAccountData* record = account.FindBalance(currency);
    if (record == nullptr) {
        if (!moves.HasOrders()) return;
        SetBalance(account, currency, {});
        record = account.FindBalance(currency);
    }
    bool isMoved = record->Move(moves);
    TBalanceRecords* summed = SummedRecords(account);
    auto* sum = summed != nullptr ? FindBalance(*summed, currency) : nullptr;
    if (sum != nullptr) isMoved |= sum->Move(moves);
    if (isMoved) FChanged.AddOrSetValue(account.GetAccount(), &account);
}

void TEmbeddedAccountAdapter::SetCustomAccountValue(StringView section, StringView key,
                                                    StringView value) {
    FCustomValues.AddOrSetValue(CustomValueKey(section, key), String(value));
}

// Accounts that become known again have changed for whoever follows them.
void TEmbeddedAccountAdapter::SetReady(bool ready) {
    if (ready && !FReady) {
        for (TEmbeddedAccount* account : FAccountList) {
            FChanged.AddOrSetValue(account->GetAccount(), account);
        }
    }
    FTellReady = ready && (FTellReady || !FReady);
    if (ready != FReady) ++FRecordsVersion;
    FReady = ready;
    FDeliveriesLeft = 0;
}

void TEmbeddedAccountAdapter::SetReadyAfter(Integer deliveries) {
    SetReady(deliveries <= 0);
    FDeliveriesLeft = deliveries;
}

void TEmbeddedAccountAdapter::CountDown() {
    if (FDeliveriesLeft > 0 && --FDeliveriesLeft == 0) SetReady(true);
}

void TEmbeddedAccountAdapter::Deliver() {
    CountDown();
    if (!FReady) return;
    const TDeliverySerial serial = FDeliveries.Begin();
    TAccountDictionary changed = std::exchange(FChanged, {});
    TAccountDictionary joined = std::exchange(FNewSubAccounts, {});
    TAccountDictionary loaded = LoadDetails();
    const bool tellReady = std::exchange(FTellReady, false);
    if (!changed.IsEmpty()) DeliverChanges(serial, changed);
    if (!joined.IsEmpty()) FSubAccountLoadCallbacks.Deliver(serial, Pointer(&joined), Pointer());
    if (!loaded.IsEmpty()) FInfoLoadCallbacks.Deliver(serial, Pointer(&loaded), Pointer());
    if (tellReady) FReadyCallbacks.Deliver(serial, Pointer(), Pointer());
}

TAccountDictionary TEmbeddedAccountAdapter::LoadDetails() {
    TAccountDictionary loaded;
    for (TEmbeddedAccount* account : FAwaited) {
        account->LoadDetails();
        loaded.Add(account->GetAccount(), account);
    }
    FAwaited.Clear();
    return loaded;
}

void TEmbeddedAccountAdapter::DeliverChanges(TDeliverySerial serial, TAccountDictionary& changed) {
    TDictionary<String, TAccountDictionary> byMaster;
    for (const auto& item : changed) {
        if (item.Value->IsSubAccount()) {
            byMaster.Obtain(item.Value->GetMasterAccount()).Add(item.Key, item.Value);
        }
    }
    for (const auto& left : std::exchange(FLeftMasters, {})) {
        for (const auto& item : left.Value) byMaster.Obtain(left.Key).Add(item.Key, item.Value);
    }
    for (const auto& item : changed) {
        FAccountCallbacks.Deliver(serial, item.Key, Pointer(&changed), Pointer());
    }
    for (const auto& item : byMaster) {
        FSubAccountCallbacks.Deliver(serial, item.Key, Pointer(&item.Value), Pointer());
    }
    FAllAccountCallbacks.Deliver(serial, Pointer(&changed), Pointer());
}

Integer TEmbeddedAccountAdapter::RegistrationCount() const {
    return FAccountCallbacks.Count() + FSubAccountCallbacks.Count() + FInfoLoadCallbacks.Count() +
           FAllAccountCallbacks.Count() + FReadyCallbacks.Count() +
           FSubAccountLoadCallbacks.Count();
}

} // namespace quorin
