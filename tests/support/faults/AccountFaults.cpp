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

} // namespace quorin
