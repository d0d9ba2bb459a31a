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
    void RemoveAccountCallback(StringView Account, TObject* Owner) override;
    void AddAccountInfoLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveAccountInfoLoadCallback(TObject* Owner) override;
    Integer GetAccountCount() const override;
    Boolean IsAccountKnown(StringView Account) const override;
    void AddSubAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, Pointer Reserved) override;
    void RemoveSubAccountCallback(StringView Account, TObject* Owner) override;
    void AddAllAccountCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveAllAccountCallback(TObject* Owner) override;
    void AddAccountReadyCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveAccountReadyCallback(TObject* Owner) override;
    Boolean IsAccountReady() const override;
    TCustomAccount* GetAccountByIndex(Integer Index) const override;
    TCustomAccount* GetAccount(StringView Account, Boolean Flag) override;
    void RequestAccountList(String& Filter, Boolean Flag) override;
    void GetSubAccountList(StringView Account, TAccountDictionary& List) const override;
    String FindAccountByText(StringView Text) const override;
    String GetCustomAccountValue(StringView Section, StringView Key) const override;
    TCustomAccountData* GetSubAccountData(StringView Account, StringView Currency) const override;
    void AddSubAccountLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveSubAccountLoadCallback(TObject* Owner) override;

private:
    template <class Answer>
    Answer LookedUp(Answer answer) const {
        FPlan.InLookUp();
        return answer;
    }
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

    void AddMultiCurrencyInfoCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveMultiCurrencyInfoCallback(TObject* Owner) override;
    void AddCurrencyListCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveCurrencyListCallback(TObject* Owner) override;
    void AddCurrencyRatioCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveCurrencyRatioCallback(TObject* Owner) override;
    const String& GetBaseCurrency() const override { return FInner.GetBaseCurrency(); }
    Boolean IsMultiCurrency() const override;
    Double GetCurrencyRatio(StringView Currency) const override;

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

    void AddProductMarginRatioCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveProductMarginRatioCallback(TObject* Owner) override;
    TCustomProductData* GetProductData(StringView Symbol, StringView Account) const override;

private:
    TFaultPlan& FPlan;
    TCustomProductAdapter& FInner;
    TFaultyCallbacks FRatios;
};

} // namespace quorin
