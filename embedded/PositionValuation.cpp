#include "embedded/PositionValuation.h"

#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Double WholeUnit = 1.0; // where a product has no contract size

// What came into one side of a position, the long or the short one, and for how much.
struct TIncome {
    Double StartQty;
    Double TodayQty;
    Double TodayAmount;
    Double StartPrice;

    Double Qty() const { return StartQty + TodayQty; }
    Double Amount() const { return StartQty * StartPrice + TodayAmount; }
    // 0.0 where nothing came in.
    Double Average() const { return Qty() != 0.0 ? Amount() / Qty() : 0.0; }
    Double TodayAverage() const { return TodayQty != 0.0 ? TodayAmount / TodayQty : StartPrice; }
    // Of the `qty` units that are left when the oldest ones went first.
    Double NewestAverage(Double qty) const {
        if (qty <= TodayQty) return TodayAverage();
        return ((qty - TodayQty) * StartPrice + TodayAmount) / qty;
    }
};

Double SignedStart(const TPositionFigures& figures) {
    const Double moved = figures.DepositQty - figures.WithdrawQty;
    const Double start = figures.BODQuantity + moved;
    return figures.Side == TPositionSide::Short ? -start : start - figures.BODShortQuantity;
}

void SetAverages(TPositionFigures& figures, const TIncome& held, Double left) {
    figures.AvgPriceIn = held.TodayAverage();
    figures.AvgPriceMixed = held.Average();
    figures.AvgPriceFIFN = held.NewestAverage(left);
}

} // namespace

TProductMarks MarksOf(const TCustomSubItem& item) {
    return {item.GetFieldDouble(Field::LastPrice), item.GetFieldDouble(Field::PreviousClose),
            item.GetFieldDouble(Field::ContractSize)};
}

Double NominalPrice(const TProductMarks& marks) {
    return marks.Last != 0.0 ? marks.Last : marks.PreviousClose;
}

Double UnitSize(const TProductMarks& marks) {
    return marks.ContractSize > 0.0 ? marks.ContractSize : WholeUnit;
}

Double QuantityFromDay(const TPositionFigures& figures) {
    const Double traded = figures.TodayBuyQty - figures.TodaySellQty;
    return figures.BODQuantity + (figures.Side == TPositionSide::Short ? -traded : traded) +
           figures.DepositQty - figures.WithdrawQty;
}

void ValuePosition(TPositionFigures& figures, const TProductMarks& marks) {
    figures.PClose = marks.PreviousClose;
    figures.Nominal = NominalPrice(marks);
    const Double size = UnitSize(marks);
    const Double startPrice = figures.BODPrice != 0.0 ? figures.BODPrice : figures.PClose;
    const Double start = SignedStart(figures);
    const TIncome bought{std::max(start, 0.0), figures.TodayBuyQty, figures.TodayBuyAmount,
                         startPrice};
    const TIncome sold{std::max(-start, 0.0), figures.TodaySellQty, figures.TodaySellAmount,
                       startPrice};

    const Double traded = figures.TodayBuyQty - figures.TodaySellQty;
    const Double spent = figures.TodayBuyAmount - figures.TodaySellAmount;
    const Double netted = std::min(bought.Qty(), sold.Qty());
    figures.InitPL = start * (figures.Nominal - startPrice) * size;
    figures.ExePL = (traded * figures.Nominal - spent) * size;
    figures.RealPL = netted * (sold.Average() - bought.Average()) * size;

    const Double left = start + traded;
    const bool isShort = left < 0.0 || (left == 0.0 && figures.Side == TPositionSide::Short);
    SetAverages(figures, isShort ? sold : bought, std::fabs(left));
}

} // namespace quorin
