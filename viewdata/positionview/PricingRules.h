#pragma once

#include "platform/rtl/Numbers.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/PositionData.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorin {

// The money rules that the position view and the account view share: what marks a position, what it
// cost, what it has won or lost. Those that build on others are templates over the control and call
// its own operations, so that a descendant's count.

// Which live prices take the place of the nominal.
struct TMarkingPrices {
    Boolean OptionSide = false; // an option in an open market: the side that it could be closed on
    Boolean Middle = false;     // a future or option: the median of last, close and that side
};

namespace pricing {

inline constexpr Double Tolerance = 1e-7;
inline constexpr Double NoAsk = std::numeric_limits<Double>::max(); // sorts behind every price
inline constexpr Double WholeUnit = 1.0; // contract size of what has none

inline Boolean IsLarger(Double value, Double limit) { // whatever its sign
    return std::fabs(value) > limit;
}

// What stood in the account in the morning counts at its own price, without one at the close.
inline Double StartPrice(const TCustomPositionData& position) {
    const Double price = position.GetBODPrice();
    return IsLarger(price, Tolerance) ? price : position.GetPClose();
}

// The side of the quote that a sided record could be closed on.
struct TClosingQuote {
    Integer Quantity;
    Integer Price;
};
inline constexpr TClosingQuote BidQuote{Field::BestBidQuantity, Field::BestBid};
inline constexpr TClosingQuote AskQuote{Field::BestAskQuantity, Field::BestAsk};

// The quoted price; `price` stays where no quantity or no price above 0 is quoted.
inline void TakeQuotedPrice(const TCustomSubItem& item, const TClosingQuote& quote, Double& price) {
    Int64 quantity = 0;
    if (!TryParseInt64(item.FieldText(quote.Quantity), quantity) || quantity <= 0) return;
    Double quoted = 0.0;
    if (TryParseDouble(item.FieldText(quote.Price), quoted) && quoted > 0.0) price = quoted;
}

} // namespace pricing

inline Boolean IsExchangeOpen(StringView exchange) {
    return TCustomMarketAdapter::GetInstance()->GetMarketStatus(exchange) == MarketOpen;
}

inline Double MedianOf(Double a, Double b, Double c) {
    return std::max(std::min(a, b), std::min(std::max(a, b), c));
}

// The price that marks the position; 0.0 for nil.
template <class Control>
Double MarkingPrice(Control& control, const TCustomPositionData* position,
                    const TMarkingPrices& prices) {
    if (position == nullptr) return 0.0;
    Double price = position->GetNominal();
    const TCustomSubItem* item = position->GetTicker();
    if (item == nullptr) return price;
    const Integer type = position->GetProdType();
    const TPositionSide side = position->GetSide();
    if (prices.OptionSide && type == ProductType::Options &&
        control.IsMarketOpen(item->FieldText(Field::Exchange))) {
        if (side == TPositionSide::Long) pricing::TakeQuotedPrice(*item, pricing::BidQuote, price);
        if (side == TPositionSide::Short) pricing::TakeQuotedPrice(*item, pricing::AskQuote, price);
        return price;
    }
    if (!prices.Middle || (type != ProductType::Futures && type != ProductType::Options)) {
        return price;
    }
    if (side == TPositionSide::Net) return price;
    const Double last = item->GetFieldDouble(Field::LastPrice);
    const Double close = position->GetPClose();
    if (side == TPositionSide::Long) {
        return control.GetMiddleOne(last, close, item->GetFieldDouble(Field::BestBid));
    }
    const Double ask = ToDoubleOr(item->FieldText(Field::BestAsk), pricing::NoAsk);
    return control.GetMiddleOne(last, close, ask);
}

// What a unit of a sided record cost on average. False, and `price` left alone, for a net record,
// for nil, and where nothing was held or came in.
inline Boolean AverageCost(const TCustomPositionData* position, Double& price) {
    if (position == nullptr || position->GetSide() == TPositionSide::Net) return false;
    const Boolean isLong = position->GetSide() == TPositionSide::Long;
    const Double start = position->GetBODQuantity();
    const Double quantity = isLong ? position->GetTodayBuyQty() : position->GetTodaySellQty();
    const Double total = start + quantity;
    // A short record counts down to the smallest quantity: exactly 0.0 is nothing there.
    if (!pricing::IsLarger(total, isLong ? pricing::Tolerance : 0.0)) return false;
    const Double amount = isLong ? position->GetTodayBuyAmount() : position->GetTodaySellAmount();
    price = (start * pricing::StartPrice(*position) + amount) / total;
    return true;
}

// Profit and loss at the marking price. A net record has no cost here; 0.0 for nil.
template <class Control>
Double ProfitAndLoss(Control& control, TCustomPositionData* position) {
    if (position == nullptr) return 0.0;
    const Double sign = position->GetSide() == TPositionSide::Short ? -1.0 : 1.0;
    const Double mark = control.GetPLPrice(position);
    Double cost = 0.0;
    if (!control.GetAvgPrice(position, cost)) cost = 0.0;
    const TCustomSubItem* item = position->GetTicker();
    const Double size = item != nullptr
                            ? ToDoubleOr(item->FieldText(Field::ContractSize), pricing::WholeUnit)
                            : pricing::WholeUnit;
    return sign * (mark - cost) * position->GetQuantity() * size;
}

} // namespace quorin
