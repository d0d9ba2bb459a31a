#include "embedded/PositionBooking.h"

#include "embedded/PositionValuation.h"

#include <cmath>
#include <utility>

namespace quorin {

namespace {

constexpr Double Dust = 1e-9; // of a unit: no product trades in parts as small as this

void TurnTo(TPositionFigures& figures, TPositionSide side) {
    if (figures.Side == side) return;
    figures.Side = side;
    figures.BODQuantity = figures.BODQuantity != 0.0 ? -figures.BODQuantity : 0.0;
    std::swap(figures.DepositQty, figures.WithdrawQty);
}

void SetSided(TPositionFigures& figures, Double signedQuantity) {
    if (signedQuantity > 0.0) TurnTo(figures, TPositionSide::Long);
    if (signedQuantity < 0.0) TurnTo(figures, TPositionSide::Short);
    figures.Quantity = std::fabs(signedQuantity);
}

} // namespace

Double SignedQuantity(const TPositionFigures& figures) {
    return figures.Side == TPositionSide::Short ? -figures.Quantity : figures.Quantity;
}

Double WithoutDust(Double quantity) {
    return std::fabs(quantity) < Dust ? 0.0 : quantity;
}

void BookTrade(TPositionFigures& figures, const TPositionTrade& trade) {
    const Double amount = trade.Quantity * trade.Price;
    if (trade.IsBuy) {
        figures.TodayBuyQty += trade.Quantity;
        figures.TodayBuyAmount += amount;
    } else {
        figures.TodaySellQty += trade.Quantity;
        figures.TodaySellAmount += amount;
    }
    const Double change = trade.IsBuy ? trade.Quantity : -trade.Quantity;
    const Double quantity = WithoutDust(SignedQuantity(figures) + change);
    if (figures.Side == TPositionSide::Net) {
        figures.Quantity = quantity;
    } else {
        SetSided(figures, quantity);
    }
}

void FollowPrice(TPositionFigures& figures) {
    if (figures.FollowsPrice) return;
    figures.FollowsPrice = true;
    figures.BODQuantity += figures.Quantity - QuantityFromDay(figures);
}

} // namespace quorin
