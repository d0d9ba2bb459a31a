#pragma once

#include "embedded/BalanceFigures.h"

namespace quorin {

// What trades, working orders and prices have moved of an account's figures since its host said
// them, in one currency. Contracts are futures and options; all else is shares.
//
// Whatever trades is paid in full. So the cash and the value of all positions together change by
// the profit alone; what an account may dispose of leaves out what contracts were paid with, and
// counts their profit.
struct TBalanceMoves {
    Double Cash = 0.0;      // received for sales, less what was paid
    Double ShareCash = 0.0; // of that, for shares
    Double Value = 0.0;     // of the positions
    Double Profit = 0.0;
    Double Realised = 0.0;       // of the profit
    Double ContractProfit = 0.0; // of the profit, of contracts
    Double Collateral = 0.0;     // what shares may be lent on
    Double Margin = 0.0;         // that contracts need
    Double Bought = 0.0;
    Double Sold = 0.0;
    Double PendingBuy = 0.0; // what working orders would pay
    Double PendingSell = 0.0;
    Double Loan = 0.0;

    friend bool operator==(const TBalanceMoves&, const TBalanceMoves&) = default;
    TBalanceMoves& operator+=(const TBalanceMoves& other) { return Add(other, 1.0); }
    TBalanceMoves& operator-=(const TBalanceMoves& other) { return Add(other, -1.0); }
    // Adds so many times the other one.
    TBalanceMoves& Add(const TBalanceMoves& other, Double times);
    // Something was traded, or an order works.
    bool HasOrders() const;
};

// The loan that an account has taken whose cash was `cash` when its host said it, over the one that
// it had then.
Double LoanMove(Double cash, const TBalanceMoves& moves);

// All figures but the texts.
void CopyAmounts(const TBalanceFigures& from, TBalanceFigures& to);

// Writes into `figures` what `fed` has become; texts stay as they are.
void MoveFigures(const TBalanceFigures& fed, const TBalanceMoves& moves, TBalanceFigures& figures);

} // namespace quorin
