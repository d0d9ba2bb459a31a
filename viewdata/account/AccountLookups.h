#pragma once

#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/CurrencyAdapter.h"

namespace quorin {

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

} // namespace quorin
