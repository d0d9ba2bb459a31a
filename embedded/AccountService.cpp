#include "embedded/AccountService.h"

#include "platform/rtl/Text.h"

#include <utility>

namespace quorin {

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
    return FAccounts.ContainsKey(Account);
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

TCustomAccount* TEmbeddedAccountAdapter::GetAccount(StringView Account, Boolean) {
    const auto* account = FAccounts.Find(Account);
    return account != nullptr ? account->get() : nullptr;
}

void TEmbeddedAccountAdapter::RequestAccountList(String&, Boolean) {
    FTellReady = FReady;
}

void TEmbeddedAccountAdapter::GetSubAccountList(StringView Account,
                                                TAccountDictionary& List) const {
    if (Account.empty()) return;
    for (TEmbeddedAccount* account : FAccountList) {
        if (account->GetMasterAccount() == Account) {
            List.AddOrSetValue(account->GetAccount(), account);
        }
    }
}

String TEmbeddedAccountAdapter::FindAccountByText(StringView Text) const {
    const StringView typed = Trim(Text);
    if (IsAccountKnown(typed)) return String(typed);
    for (const TEmbeddedAccount* account : FAccountList) {
        if (SameText(account->GetAccount(), typed)) return account->GetAccount();
    }
    return {};
}

String TEmbeddedAccountAdapter::GetCustomAccountValue(StringView, StringView) const {
    return {};
}

TCustomAccountData* TEmbeddedAccountAdapter::GetSubAccountData(StringView, StringView) const {
    return nullptr;
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
    if (record == nullptr) {
        record = std::make_unique<TEmbeddedAccount>(account);
        FAccountList.Add(record.get());
    }
    record->SetDetails(details);
    FChanged.AddOrSetValue(account, record.get());
}

void TEmbeddedAccountAdapter::SetReady(bool ready) {
    FTellReady = ready && (FTellReady || !FReady);
    FReady = ready;
}

void TEmbeddedAccountAdapter::Deliver() {
    TAccountDictionary changed = std::exchange(FChanged, {});
    const bool tellReady = std::exchange(FTellReady, false);
    if (!changed.IsEmpty()) DeliverChanges(changed);
    if (tellReady) FReadyCallbacks.Deliver(Pointer(), Pointer());
}

void TEmbeddedAccountAdapter::DeliverChanges(TAccountDictionary& changed) {
    TDictionary<String, TAccountDictionary> byMaster;
    for (const auto& item : changed) {
        if (item.Value->IsSubAccount()) {
            byMaster.Obtain(item.Value->GetMasterAccount()).Add(item.Key, item.Value);
        }
    }
    for (const auto& item : changed) {
        FAccountCallbacks.Deliver(item.Key, Pointer(&changed), Pointer());
    }
    for (const auto& item : byMaster) {
        FSubAccountCallbacks.Deliver(item.Key, Pointer(&item.Value), Pointer());
    }
    FAllAccountCallbacks.Deliver(Pointer(&changed), Pointer());
}

Integer TEmbeddedAccountAdapter::RegistrationCount() const {
    return FAccountCallbacks.Count() + FSubAccountCallbacks.Count() + FInfoLoadCallbacks.Count() +
           FAllAccountCallbacks.Count() + FReadyCallbacks.Count() +
           FSubAccountLoadCallbacks.Count();
}

} // namespace quorin
