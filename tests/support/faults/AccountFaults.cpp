#include "tests/support/faults/AccountFaults.h"

namespace quorin {

TFaultyAccountAdapter::TFaultyAccountAdapter(TFaultPlan& plan, TCustomAccountAdapter& inner)
    : FPlan(plan), FInner(inner),
      FAccounts(plan, [this](TFaultyEntry& entry) { TellAccount(entry); }),
      FSubAccounts(plan, [this](TFaultyEntry& entry) { TellSubAccounts(entry); }),
      FAllAccounts(plan, [this](TFaultyEntry& entry) { TellAllAccounts(entry); }),
      FReady(plan, [this](TFaultyEntry& entry) { TellReady(entry); }),
      FInfoLoads(plan, [this](TFaultyEntry& entry) { TellAllAccounts(entry); }),
      FSubLoads(plan, [this](TFaultyEntry& entry) { TellAllAccounts(entry); }) {}

// Or nothing at all.
void TFaultyAccountAdapter::Tell(TFaultyEntry& entry, TAccountDictionary& named) {
    if (FPlan.OneIn(3)) {
        FPlan.Count(TFault::NilSender);
        entry.Tell(nullptr);
    } else {
        FPlan.Count(TFault::ReportedAgain);
        entry.Tell(&named);
    }
}

void TFaultyAccountAdapter::TellAccount(TFaultyEntry& entry) {
    TAccountDictionary named;
    if (TCustomAccount* account = FInner.GetAccount(entry.Key(), /*Flag=*/false)) {
        named.Add(entry.Key(), account);
    }
    Tell(entry, named);
}

void TFaultyAccountAdapter::TellSubAccounts(TFaultyEntry& entry) {
    TAccountDictionary named;
    FInner.GetSubAccountList(entry.Key(), named);
    Tell(entry, named);
}

void TFaultyAccountAdapter::TellAllAccounts(TFaultyEntry& entry) {
    TAccountDictionary named;
    for (Integer index = 0; index < FInner.GetAccountCount(); ++index) {
        if (TCustomAccount* account = FInner.GetAccountByIndex(index)) {
            named.Add(account->GetAccount(), account);
        }
    }
    Tell(entry, named);
}

void TFaultyAccountAdapter::TellReady(TFaultyEntry& entry) {
    if (FInner.IsAccountReady()) entry.Tell(nullptr);
}

void TFaultyAccountAdapter::ChangeAccountCallback(StringView Account,
                                                  const TDataCallbackEvent& Callback,
                                                  TObject* Owner, StringView PreviousAccount) {
    if (!PreviousAccount.empty()) FAccounts.Remove(Owner, PreviousAccount);
    if (Account.empty()) {
        FInner.ChangeAccountCallback(Account, Callback, Owner, PreviousAccount);
        return;
    }
    FAccounts.Register(Owner, Account, Callback, [&](const auto& event) {
        FInner.ChangeAccountCallback(Account, event, Owner, PreviousAccount);
    });
    FPlan.InRegistration(FAccounts);
}

void TFaultyAccountAdapter::RemoveAccountCallback(StringView Account, TObject* Owner) {
    FAccounts.Remove(Owner, Account);
    FInner.RemoveAccountCallback(Account, Owner);
}

void TFaultyAccountAdapter::AddAccountInfoLoadCallback(const TDataCallbackEvent& Callback,
                                                       TObject* Owner) {
    FInfoLoads.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddAccountInfoLoadCallback(event, Owner);
    });
    FPlan.InRegistration(FInfoLoads);
}

void TFaultyAccountAdapter::RemoveAccountInfoLoadCallback(TObject* Owner) {
    FInfoLoads.Remove(Owner, {});
    FInner.RemoveAccountInfoLoadCallback(Owner);
}

Integer TFaultyAccountAdapter::GetAccountCount() const {
    return LookedUp(FInner.GetAccountCount());
}

Boolean TFaultyAccountAdapter::IsAccountKnown(StringView Account) const {
    return LookedUp(FInner.IsAccountKnown(Account));
}

void TFaultyAccountAdapter::AddSubAccountCallback(StringView Account,
                                                  const TDataCallbackEvent& Callback,
                                                  TObject* Owner, Pointer Reserved) {
    FSubAccounts.Register(Owner, Account, Callback, [&](const auto& event) {
        FInner.AddSubAccountCallback(Account, event, Owner, Reserved);
    });
    FPlan.InRegistration(FSubAccounts);
}

void TFaultyAccountAdapter::RemoveSubAccountCallback(StringView Account, TObject* Owner) {
    FSubAccounts.Remove(Owner, Account);
    FInner.RemoveSubAccountCallback(Account, Owner);
}

void TFaultyAccountAdapter::AddAllAccountCallback(const TDataCallbackEvent& Callback,
                                                  TObject* Owner) {
    FAllAccounts.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddAllAccountCallback(event, Owner);
    });
    FPlan.InRegistration(FAllAccounts);
}

void TFaultyAccountAdapter::RemoveAllAccountCallback(TObject* Owner) {
    FAllAccounts.Remove(Owner, {});
    FInner.RemoveAllAccountCallback(Owner);
}

void TFaultyAccountAdapter::AddAccountReadyCallback(const TDataCallbackEvent& Callback,
                                                    TObject* Owner) {
    FReady.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddAccountReadyCallback(event, Owner);
    });
    FPlan.InRegistration(FReady);
}

void TFaultyAccountAdapter::RemoveAccountReadyCallback(TObject* Owner) {
    FReady.Remove(Owner, {});
    FInner.RemoveAccountReadyCallback(Owner);
}

Boolean TFaultyAccountAdapter::IsAccountReady() const {
    return LookedUp(FInner.IsAccountReady());
}

TCustomAccount* TFaultyAccountAdapter::GetAccountByIndex(Integer Index) const {
    return LookedUp(FInner.GetAccountByIndex(Index));
}

TCustomAccount* TFaultyAccountAdapter::GetAccount(StringView Account, Boolean Flag) {
    return LookedUp(FInner.GetAccount(Account, Flag));
}

void TFaultyAccountAdapter::RequestAccountList(String& Filter, Boolean Flag) {
    FInner.RequestAccountList(Filter, Flag);
    FPlan.InRegistration(FReady);
}

void TFaultyAccountAdapter::GetSubAccountList(StringView Account, TAccountDictionary& List) const {
    FInner.GetSubAccountList(Account, List);
    FPlan.InLookUp();
}

String TFaultyAccountAdapter::FindAccountByText(StringView Text) const {
    return LookedUp(FInner.FindAccountByText(Text));
}

String TFaultyAccountAdapter::GetCustomAccountValue(StringView Section, StringView Key) const {
    return LookedUp(FInner.GetCustomAccountValue(Section, Key));
}

TCustomAccountData* TFaultyAccountAdapter::GetSubAccountData(StringView Account,
                                                             StringView Currency) const {
    return LookedUp(FInner.GetSubAccountData(Account, Currency));
}

void TFaultyAccountAdapter::AddSubAccountLoadCallback(const TDataCallbackEvent& Callback,
                                                      TObject* Owner) {
    FSubLoads.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddSubAccountLoadCallback(event, Owner);
    });
    FPlan.InRegistration(FSubLoads);
}

void TFaultyAccountAdapter::RemoveSubAccountLoadCallback(TObject* Owner) {
    FSubLoads.Remove(Owner, {});
    FInner.RemoveSubAccountLoadCallback(Owner);
}

TFaultyCurrencyAdapter::TFaultyCurrencyAdapter(TFaultPlan& plan, TCustomCurrencyAdapter& inner)
    : FPlan(plan), FInner(inner), FInfos(plan, &TellNothing), FLists(plan, &TellNothing),
      FRatios(plan, [this](TFaultyEntry& entry) { TellRatios(entry); }) {}

void TFaultyCurrencyAdapter::TellRatios(TFaultyEntry& entry) {
    TCurrencyRatioDictionary ratios;
    const String& base = FInner.GetBaseCurrency();
    ratios.Add(base, FInner.GetCurrencyRatio(base));
    const bool isNil = FPlan.OneIn(2);
    FPlan.Count(isNil ? TFault::NilSender : TFault::NamesMore);
    entry.Tell(isNil ? nullptr : &ratios);
}

void TFaultyCurrencyAdapter::AddMultiCurrencyInfoCallback(const TDataCallbackEvent& Callback,
                                                          TObject* Owner) {
    FInfos.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddMultiCurrencyInfoCallback(event, Owner);
    });
    FPlan.InRegistration(FInfos);
}

void TFaultyCurrencyAdapter::RemoveMultiCurrencyInfoCallback(TObject* Owner) {
    FInfos.Remove(Owner, {});
    FInner.RemoveMultiCurrencyInfoCallback(Owner);
}

void TFaultyCurrencyAdapter::AddCurrencyListCallback(const TDataCallbackEvent& Callback,
                                                     TObject* Owner) {
    FLists.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddCurrencyListCallback(event, Owner);
    });
    FPlan.InRegistration(FLists);
}

void TFaultyCurrencyAdapter::RemoveCurrencyListCallback(TObject* Owner) {
    FLists.Remove(Owner, {});
    FInner.RemoveCurrencyListCallback(Owner);
}

void TFaultyCurrencyAdapter::AddCurrencyRatioCallback(const TDataCallbackEvent& Callback,
                                                      TObject* Owner) {
    FRatios.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddCurrencyRatioCallback(event, Owner);
    });
    FPlan.InRegistration(FRatios);
}

void TFaultyCurrencyAdapter::RemoveCurrencyRatioCallback(TObject* Owner) {
    FRatios.Remove(Owner, {});
    FInner.RemoveCurrencyRatioCallback(Owner);
}

Boolean TFaultyCurrencyAdapter::IsMultiCurrency() const {
    FPlan.InLookUp();
    return FInner.IsMultiCurrency();
}

Double TFaultyCurrencyAdapter::GetCurrencyRatio(StringView Currency) const {
    const Double ratio = FInner.GetCurrencyRatio(Currency);
    FPlan.InLookUp();
    return ratio;
}

void TFaultyProductAdapter::AddProductMarginRatioCallback(const TDataCallbackEvent& Callback,
                                                          TObject* Owner) {
    FRatios.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.AddProductMarginRatioCallback(event, Owner);
    });
    FPlan.InRegistration(FRatios);
}

void TFaultyProductAdapter::RemoveProductMarginRatioCallback(TObject* Owner) {
    FRatios.Remove(Owner, {});
    FInner.RemoveProductMarginRatioCallback(Owner);
}

TCustomProductData* TFaultyProductAdapter::GetProductData(StringView Symbol,
                                                          StringView Account) const {
    TCustomProductData* data = FInner.GetProductData(Symbol, Account);
    FPlan.InLookUp();
    return data;
}

} // namespace quorin
