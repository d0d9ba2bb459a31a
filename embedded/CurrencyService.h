#pragma once

#include "embedded/Registrations.h"
#include "viewdata/services/CurrencyAdapter.h"

namespace quorin {

inline constexpr StringView DefaultBaseCurrency = u"HKD";

// Currencies that the host names, each with its worth in the base currency. What is fed counts at
// once; Deliver tells of it.
class TEmbeddedCurrencyAdapter : public TCustomCurrencyAdapter {
public:
    // Operations of the contract
    void AddMultiCurrencyInfoCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FMultiCurrencyCallbacks.Add(Owner, Callback);
    }
    void RemoveMultiCurrencyInfoCallback(TObject* Owner) override {
        FMultiCurrencyCallbacks.Remove(Owner);
    }
    void AddCurrencyListCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FListCallbacks.Add(Owner, Callback);
    }
    void RemoveCurrencyListCallback(TObject* Owner) override { FListCallbacks.Remove(Owner); }
    void AddCurrencyRatioCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FRatioCallbacks.Add(Owner, Callback);
    }
    void RemoveCurrencyRatioCallback(TObject* Owner) override { FRatioCallbacks.Remove(Owner); }
    const String& GetBaseCurrency() const override { return FBaseCurrency; }
    Boolean IsMultiCurrency() const override { return FMultiCurrency; }
    Double GetCurrencyRatio(StringView Currency) const override;

    // Off to begin with.
    void SetMultiCurrency(bool multiCurrency);
    // The records that accounts have per currency changed.
    void TouchMultiCurrencyInfo() { FMultiCurrencyChanged = true; }
    // The ratio of a currency; 0.0 for one that is listed while its ratio is not known. The base
    // currency's stays 1.0.
    void FeedRatio(StringView currency, Double ratio);
    void Deliver();
    Integer RegistrationCount() const;

private:
    const String FBaseCurrency{DefaultBaseCurrency};
    TCurrencyRatioDictionary FRatios;
    TCurrencyRatioDictionary FChangedRatios;
    bool FMultiCurrency = false;
    bool FMultiCurrencyChanged = false;
    bool FListChanged = false;
    TDeliveryClock FDeliveries;
    TRegistrations<TDataCallbackEvent> FMultiCurrencyCallbacks{FDeliveries};
    TRegistrations<TDataCallbackEvent> FListCallbacks{FDeliveries};
    TRegistrations<TDataCallbackEvent> FRatioCallbacks{FDeliveries};
};

} // namespace quorin
