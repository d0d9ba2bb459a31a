#pragma once

#include "embedded/BalanceMoves.h"
#include "platform/rtl/TDictionary.h"

namespace quorin {

class TEmbeddedAccount;
class TEmbeddedAccountAdapter;
class TEmbeddedCurrencyAdapter;
class TEmbeddedPositionAdapter;
class TEmbeddedPositionData;
class TEmbeddedProductAdapter;
class TEmbeddedSubscribeAdapter;
class TMarginFeed;
class TOrderDesk;

// Keeps the figures of accounts in step with their positions and orders. What a host says of an
// account or a position holds for the moment at which it says it: from there on the figures move
// by what was traded and by what the positions are worth.
class TAccountLedger {
public:
    struct TParts {
        TEmbeddedSubscribeAdapter& Items;
        TEmbeddedAccountAdapter& Accounts;
        TEmbeddedPositionAdapter& Positions;
        TEmbeddedCurrencyAdapter& Currencies;
        TEmbeddedProductAdapter& Products;
        TMarginFeed& Margins;
        TOrderDesk& Desk;
    };
    // All must live longer.
    explicit TAccountLedger(const TParts& parts) : FParts(parts) {}

    // Takes over what the host has said since the last call. Due before anything is booked.
    void Settle();
    // Moves the figures of the accounts whose positions or orders have changed since positions
    // were delivered. Costs what these accounts hold, and what orders work. An account that has
    // traded gets the records that it lacks.
    void Revalue();

private:
    struct TEntry { // of a position
        TBalanceMoves Start;
        TBalanceMoves Last;
    };
    using TByCurrency = TDictionary<String, TBalanceMoves>;

    TBalanceMoves Worth(const TEmbeddedPositionData& position, const TEmbeddedAccount& account);
    Double LoanShare(const TEmbeddedPositionData& position, const TEmbeddedAccount& account) const;
    StringView CurrencyOf(StringView symbol) const;
    void Touch(StringView account);
    void AddPositions(const TEmbeddedAccount& account, TByCurrency& moves);
    void AddOrders();
    void Write(TEmbeddedAccount& account, const TByCurrency& moves);

    const TParts FParts;
    TDictionary<const TEmbeddedPositionData*, TEntry> FEntries;
    TDictionary<String, TByCurrency> FTouched; // by account
};

} // namespace quorin
