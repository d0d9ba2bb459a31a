#include "embedded/PriceDecimals.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Integer MostStepDecimals = 8;
constexpr StringView GeneralPricePattern = u"0.00######";
constexpr Double HalfOfLastDecimal = 0.5e-8;
constexpr Double BinaryNoise = 1e-15;  // part of a worked-out price
constexpr Double StepTolerance = 1e-6; // of the last decimal

Integer DecimalsOfStep(Double step) {
    if (!(step > 0.0)) return UnknownDecimals;
    for (Integer decimals = 0; decimals < MostStepDecimals; ++decimals) {
        const Double units = std::nearbyint(step);
        if (units >= 1.0 && std::fabs(step - units) <= StepTolerance) return decimals;
        step *= 10.0;
    }
    return MostStepDecimals;
}

// std::nearbyint without the call, which is most of the cost of a price's decimals: what is added
// to the shift has no bits left behind the point.
Double Nearest(Double value) {
    constexpr Double shift = 0x1.8p52;
    constexpr Double most = 0x1p51;
    return std::fabs(value) < most ? (value + shift) - shift : std::nearbyint(value);
}

// As many decimals as the price has, up to the most; no fewer than `decimals`.
Integer DecimalsOfPrice(Double price, Integer decimals) {
    const Double tolerance = std::max(HalfOfLastDecimal, std::fabs(price) * BinaryNoise);
    Double scale = 1.0;
    for (Integer place = 0; place < decimals; ++place) scale *= 10.0;
    for (; decimals < MostStepDecimals; ++decimals, scale *= 10.0) {
        if (std::fabs(Nearest(price * scale) / scale - price) <= tolerance) break;
    }
    return decimals;
}

Double StepOfTable(StringView spreadCode, Double price) {
    TCustomMarketAdapter* market = TCustomMarketAdapter::GetInstance();
    if (market == nullptr || spreadCode.empty()) return 0.0;
    const TCustomSpreadTable* table = market->FindSpreadTable(spreadCode);
    if (table == nullptr || table->GetStatus() != SpreadTableLoaded) return 0.0;
    Double upper = 0.0;
    Double lower = 0.0;
    return table->GetSpreadUp(price, upper, lower);
}

} // namespace

void AppendPrice(String& target, Double price, Integer decimals) {
    if (decimals == UnknownDecimals) {
        AppendPattern(target, price, GeneralPricePattern);
    } else {
        AppendDecimals(target, price, DecimalsOfPrice(price, decimals), /*grouping=*/false);
    }
}

Integer TPriceDecimals::Find(StringView symbol, Double price) const {
    TCustomSubscribeAdapter* items = TCustomSubscribeAdapter::GetInstance();
    if (items == nullptr || symbol.empty()) return UnknownDecimals;
    const TCustomSubItem* item = items->GetSubItem(symbol, LiveDataType, /*Flag=*/false);
    item->GetFieldString(Field::SpreadCode, FText);
    const Double step = StepOfTable(FText, price);
    if (step != FLastStep) {
        FLastStep = step;
        FLastDecimals = DecimalsOfStep(step);
    }
    if (FLastDecimals != UnknownDecimals) return FLastDecimals;
    item->GetFieldString(Field::TickSize, FText);
    return DecimalsOfStep(ToDoubleOr(FText, 0.0));
}

} // namespace quorin
