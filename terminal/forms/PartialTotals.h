#pragma once

#include "platform/rtl/TDictionary.h"
#include "viewdata/services/Account.h"
#include "viewdata/services/PositionData.h"

namespace quorin {

// A few names for a sentence: the first ones, apart by commas, and a sign where there are more.
class TFewNames {
public:
    void Add(StringView name);
    bool IsEmpty() const { return FCount == 0; }
    const String& Text() const { return FText; }

private:
    String FText;
    Integer FCount = 0;
};

// Tells of the totals of accounts what they cannot have in them: positions that are held and have
// no market value in the base currency, and records of currencies that have no ratio. What it has
// found of an account counts until Forget.
class TPartialTotals {
public:
    void Forget() { FAccounts.Clear(); }
    // Why the account's total of that figure is partial; empty while it is whole and for what is no
    // total. With `isSum` the sub-accounts belong to it.
    const String& Reason(const String& account, Integer attribute, bool isSum);

private:
    struct TReasons {
        bool IsSum = false;
        String OfRatios;
        String OfPricesAndRatios;
    };

    static TReasons Find(const String& account, bool isSum);

    TDictionary<String, TReasons> FAccounts;
};

} // namespace quorin
