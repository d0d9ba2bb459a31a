#pragma once

#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/CurrencyAdapter.h"

namespace quorin {

// What several view models ask about accounts and currencies.

// The total record of an account is under the empty currency code.
inline constexpr StringView TotalRecord = {};

inline TCustomAccountAdapter& Accounts() {
    return *TCustomAccountAdapter::GetInstance();
}

inline TCustomCurrencyAdapter& Currencies() {
    return *TCustomCurrencyAdapter::GetInstance();
}

// Nil for the empty code and an unknown one; details that are missing are loaded for later.
inline TCustomAccount* FindAccount(StringView code) {
    return Accounts().GetAccount(code, /*Flag=*/true);
}

// Turns an amount in that currency into the base currency; 0.0 when it is not known.
inline Double RatioOf(StringView currency) {
    return Currencies().GetCurrencyRatio(currency);
}

} // namespace quorin
