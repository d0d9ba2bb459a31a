#include "embedded/CurrencyService.h"

#include <utility>

namespace quorin {

Double TEmbeddedCurrencyAdapter::GetCurrencyRatio(StringView Currency) const {
    if (Currency == FBaseCurrency) return 1.0;
    const Double* ratio = FRatios.Find(Currency);
    return ratio != nullptr ? *ratio : 0.0;
}

void TEmbeddedCurrencyAdapter::SetMultiCurrency(bool multiCurrency) {
    if (FMultiCurrency == multiCurrency) return;
    FMultiCurrency = multiCurrency;
    FMultiCurrencyChanged = true;
}

void TEmbeddedCurrencyAdapter::FeedRatio(StringView currency, Double ratio) {
    if (currency == FBaseCurrency) return;
    if (!FRatios.ContainsKey(currency)) FListChanged = true;
    FRatios.AddOrSetValue(currency, ratio);
    FChangedRatios.AddOrSetValue(currency, ratio);
}

void TEmbeddedCurrencyAdapter::Deliver() {
    const TDeliverySerial serial = FDeliveries.Begin();
    TCurrencyRatioDictionary ratios = std::exchange(FChangedRatios, {});
    if (std::exchange(FListChanged, false)) FListCallbacks.Deliver(serial, Pointer(), Pointer());
    if (!ratios.IsEmpty()) FRatioCallbacks.Deliver(serial, Pointer(&ratios), Pointer());
    if (std::exchange(FMultiCurrencyChanged, false)) {
        FMultiCurrencyCallbacks.Deliver(serial, Pointer(), Pointer());
    }
}

Integer TEmbeddedCurrencyAdapter::RegistrationCount() const {
    return FMultiCurrencyCallbacks.Count() + FListCallbacks.Count() + FRatioCallbacks.Count();
}

} // namespace quorin
