#include "embedded/BalanceMoves.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Double BuyHoldShare = 0.5;     // of what a working buy order would pay
constexpr Double MaintenanceShare = 0.8; // of the margin

constexpr Double TBalanceMoves::*Parts[] = {
    &TBalanceMoves::Cash,       &TBalanceMoves::ShareCash,  &TBalanceMoves::Value,
    &TBalanceMoves::Profit,     &TBalanceMoves::Realised,   &TBalanceMoves::ContractProfit,
    &TBalanceMoves::Collateral, &TBalanceMoves::Margin,     &TBalanceMoves::Bought,
    &TBalanceMoves::Sold,       &TBalanceMoves::PendingBuy, &TBalanceMoves::PendingSell,
    &TBalanceMoves::Loan,
};

Double LoanOn(Double cash) {
    return std::max(-cash, 0.0);
}

} // namespace

TBalanceMoves& TBalanceMoves::Add(const TBalanceMoves& other, Double times) {
    for (const auto part : Parts) this->*part += other.*part * times;
    return *this;
}

// Exactly 0.0 is what nothing leaves.
bool TBalanceMoves::HasOrders() const {
    return Bought != 0.0 || Sold != 0.0 || PendingBuy != 0.0 || PendingSell != 0.0;
}

Double LoanMove(Double cash, const TBalanceMoves& moves) {
    return LoanOn(cash + moves.ShareCash) - LoanOn(cash);
}

void CopyAmounts(const TBalanceFigures& from, TBalanceFigures& to) {
    for (const TBalanceColumn& column : BalanceColumns) {
        to.*(column.Figure) = from.*(column.Figure);
    }
}

void MoveFigures(const TBalanceFigures& fed, const TBalanceMoves& moves, TBalanceFigures& figures) {
    CopyAmounts(fed, figures);
    const Double hold = moves.PendingBuy * BuyHoldShare;
    const Double maintenance = moves.Margin * MaintenanceShare;
    const Double funds = moves.ShareCash + moves.Collateral;
    figures.Value155 += moves.PendingBuy;
    figures.Value156 += moves.PendingSell;
    figures.Value185 += moves.Bought;
    figures.Value186 += moves.Sold;
    figures.Value445 += moves.Value;
    figures.Value446 += moves.Profit - moves.Realised;
    figures.Value604 += moves.Margin;
    figures.Value606 += maintenance;
    figures.Value607 += moves.Profit;
    figures.Value990 += hold;
    figures.Value991 += moves.Cash;
    figures.Value996 += funds + moves.ContractProfit - maintenance;
    figures.Value1205 += moves.Collateral;
    figures.Value1503 += moves.Loan;
    figures.Value9018A += funds;
    figures.Value9018B += hold + moves.Margin + moves.Loan;
    figures.Value9028 += moves.Cash + moves.Value;
}

} // namespace quorin
