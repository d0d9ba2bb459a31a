#pragma once

#include "tests/support/faults/FaultyCallbacks.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/CurrencyAdapter.h"
#include "viewdata/services/ProductAdapter.h"

namespace quorin {

// Accounts, misbehaving: accounts and sub-accounts are told of though nothing about them changed.
class TFaultyAccountAdapter final : public TCustomAccountAdapter {
public:
    TFaultyAccountAdapter(TFaultPlan& plan, TCustomAccountAdapter& inner);

    void ChangeAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, StringView PreviousAccount) override;
    void RemoveAccountCallback(StringView Account, TObject* Owner) override {
        FAccounts.Remove(Owner, Account);
        FInner.RemoveAccountCallback(Account, Owner);
    }
    void AddSubAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, Pointer Reserved) override {
        FSubAccounts.RegisterAndCall(Owner, Account, Callback, [&](const auto& event) {
            FInner.AddSubAccountCallback(Account, event, Owner, Reserved);
        });
    }
    void RemoveSubAccountCallback(StringView Account, TObject* Owner) override {
        FSubAccounts.Remove(Owner, Account);
        FInner.RemoveSubAccountCallback(Account, Owner);
    }
    void AddAccountInfoLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FInfoLoads.Add(FInner, &TCustomAccountAdapter::AddAccountInfoLoadCallback, Callback, Owner);
    }
    void RemoveAccountInfoLoadCallback(TObject* Owner) override {
        FInfoLoads.Remove(FInner, &TCustomAccountAdapter::RemoveAccountInfoLoadCallback, Owner);
    }
    void AddAllAccountCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FAllAccounts.Add(FInner, &TCustomAccountAdapter::AddAllAccountCallback, Callback, Owner);
    }
    void RemoveAllAccountCallback(TObject* Owner) override {
        FAllAccounts.Remove(FInner, &TCustomAccountAdapter::RemoveAllAccountCallback, Owner);
    }
    void AddAccountReadyCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FReady.Add(FInner, &TCustomAccountAdapter::AddAccountReadyCallback, Callback, Owner);
    }
    void RemoveAccountReadyCallback(TObject* Owner) override {
        FReady.Remove(FInner, &TCustomAccountAdapter::RemoveAccountReadyCallback, Owner);
    }
    void AddSubAccountLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FSubLoads.Add(FInner, &TCustomAccountAdapter::AddSubAccountLoadCallback, Callback, Owner);
    }
    void RemoveSubAccountLoadCallback(TObject* Owner) override {
        FSubLoads.Remove(FInner, &TCustomAccountAdapter::RemoveSubAccountLoadCallback, Owner);
    }
    Integer GetAccountCount() const override { return FPlan.LookedUp(FInner.GetAccountCount()); }
    Boolean IsAccountKnown(StringView Account) const override {
        return FPlan.LookedUp(FInner.IsAccountKnown(Account));
    }
    Boolean IsAccountReady() const override { return FPlan.LookedUp(FInner.IsAccountReady()); }
    TCustomAccount* GetAccountByIndex(Integer Index) const override {
        return FPlan.LookedUp(FInner.GetAccountByIndex(Index));
    }
    TCustomAccount* GetAccount(StringView Account, Boolean Flag) override {
        return FPlan.LookedUp(FInner.GetAccount(Account, Flag));
    }
    String FindAccountByText(StringView Text) const override {
        return FPlan.LookedUp(FInner.FindAccountByText(Text));
    }
    String GetCustomAccountValue(StringView Section, StringView Key) const override {
        return FPlan.LookedUp(FInner.GetCustomAccountValue(Section, Key));
    }
    TCustomAccountData* GetSubAccountData(StringView Account, StringView Currency) const override {
        return FPlan.LookedUp(FInner.GetSubAccountData(Account, Currency));
    }
    void RequestAccountList(String& Filter, Boolean Flag) override {
        FInner.RequestAccountList(Filter, Flag);
        FPlan.InRegistration(FReady);
    }
    void GetSubAccountList(StringView Account, TAccountDictionary& List) const override {
        FInner.GetSubAccountList(Account, List);
        FPlan.InLookUp();
    }

private:
    void Tell(TFaultyEntry& entry, TAccountDictionary& named);
    void TellAccount(TFaultyEntry& entry);
    void TellSubAccounts(TFaultyEntry& entry);
    void TellAllAccounts(TFaultyEntry& entry);
    void TellReady(TFaultyEntry& entry);

    TFaultPlan& FPlan;
    TCustomAccountAdapter& FInner;
    TFaultyCallbacks FAccounts;
    TFaultyCallbacks FSubAccounts; // by master
    TFaultyCallbacks FAllAccounts;
    TFaultyCallbacks FReady;
    TFaultyCallbacks FInfoLoads;
    TFaultyCallbacks FSubLoads;
};

// Currencies, misbehaving: ratios are told of as they are.
class TFaultyCurrencyAdapter final : public TCustomCurrencyAdapter {
public:
    TFaultyCurrencyAdapter(TFaultPlan& plan, TCustomCurrencyAdapter& inner);

    void AddMultiCurrencyInfoCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FInfos.Add(FInner, &TCustomCurrencyAdapter::AddMultiCurrencyInfoCallback, Callback, Owner);
    }
    void RemoveMultiCurrencyInfoCallback(TObject* Owner) override {
        FInfos.Remove(FInner, &TCustomCurrencyAdapter::RemoveMultiCurrencyInfoCallback, Owner);
    }
    void AddCurrencyListCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FLists.Add(FInner, &TCustomCurrencyAdapter::AddCurrencyListCallback, Callback, Owner);
    }
    void RemoveCurrencyListCallback(TObject* Owner) override {
        FLists.Remove(FInner, &TCustomCurrencyAdapter::RemoveCurrencyListCallback, Owner);
    }
    void AddCurrencyRatioCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FRatios.Add(FInner, &TCustomCurrencyAdapter::AddCurrencyRatioCallback, Callback, Owner);
    }
    void RemoveCurrencyRatioCallback(TObject* Owner) override {
        FRatios.Remove(FInner, &TCustomCurrencyAdapter::RemoveCurrencyRatioCallback, Owner);
    }
    const String& GetBaseCurrency() const override { return FInner.GetBaseCurrency(); }
    Boolean IsMultiCurrency() const override {
        FPlan.InLookUp();
        return FInner.IsMultiCurrency();
    }
    Double GetCurrencyRatio(StringView Currency) const override {
        return FPlan.LookedUp(FInner.GetCurrencyRatio(Currency));
    }

private:
    void TellRatios(TFaultyEntry& entry);

    TFaultPlan& FPlan;
    TCustomCurrencyAdapter& FInner;
    TFaultyCallbacks FInfos;
    TFaultyCallbacks FLists;
    TFaultyCallbacks FRatios;
};

// Margin ratios, misbehaving.
class TFaultyProductAdapter final : public TCustomProductAdapter {
public:
    TFaultyProductAdapter(TFaultPlan& plan, TCustomProductAdapter& inner)
        : FPlan(plan), FInner(inner), FRatios(plan, &TellNothing) {}

    void AddProductMarginRatioCallback(const TDataCallbackEvent& Callback,
                                       TObject* Owner) override {
        FRatios.Add(FInner, &TCustomProductAdapter::AddProductMarginRatioCallback, Callback, Owner);
    }
    void RemoveProductMarginRatioCallback(TObject* Owner) override {
        FRatios.Remove(FInner, &TCustomProductAdapter::RemoveProductMarginRatioCallback, Owner);
    }
    TCustomProductData* GetProductData(StringView Symbol, StringView Account) const override {
        return FPlan.LookedUp(FInner.GetProductData(Symbol, Account));
    }

private:
    TFaultPlan& FPlan;
    TCustomProductAdapter& FInner;
    TFaultyCallbacks FRatios;
};

} // namespace quorin
