#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TEvent.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// Currency code to ratio: `Sender` of the ratio callback.
using TCurrencyRatioDictionary = TDictionary<String, Double>;

// Currencies and what they are worth. An amount in one currency is shown in another by multiplying
// it with its own currency's ratio and dividing by the other's.
class TCustomCurrencyAdapter : public TService<TCustomCurrencyAdapter> {
public:
    // Operations, in order

    // The account information per currency changed. `Sender`: nil.
    virtual void AddMultiCurrencyInfoCallback(const TDataCallbackEvent& Callback,
                                              TObject* Owner) = 0;
    virtual void RemoveMultiCurrencyInfoCallback(TObject* Owner) = 0;
    // The list of currencies changed. `Sender`: nil.
    virtual void AddCurrencyListCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveCurrencyListCallback(TObject* Owner) = 0;
    // Ratios changed. `Sender`: TCurrencyRatioDictionary of the new ratios, or nil.
    virtual void AddCurrencyRatioCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveCurrencyRatioCallback(TObject* Owner) = 0;
    virtual const String& GetBaseCurrency() const = 0;
    // Accounts carry one record per currency.
    virtual Boolean IsMultiCurrency() const = 0;
    // What one unit of `Currency` is worth in the base currency; 0.0 when that is not known.
    virtual Double GetCurrencyRatio(StringView Currency) const = 0;
};

} // namespace quorin
