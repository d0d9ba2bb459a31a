#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/position/PositionAttributes.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/PositionAdapter.h"

#include <cmath>

namespace quorin {

namespace {

namespace A = PositionAttribute;

constexpr Integer AverageOfIncome = 1; // "PVAvgPriceMode"; every other mode is the mixed average
constexpr Integer AverageFirstInFirstNetted = 2;

Variant LivePrice(const TCustomPositionData& record, Integer field) {
    const TCustomSubItem* ticker = LiveTicker(record);
    if (ticker == nullptr) return 0;
    return ticker->GetFieldDouble(field);
}

Variant LongQuantity(const TCustomPositionData& record) {
    const Double quantity = record.GetQuantity();
    if (IsNet(record) && quantity > 0.0) return quantity;
    if (record.GetSide() == TPositionSide::Long && !IsNearZero(quantity)) return quantity;
    return 0;
}

// A net record's size, a short record's quantity with its sign.
Variant ShortQuantity(const TCustomPositionData& record) {
    const Double quantity = record.GetQuantity();
    if (IsNet(record) && quantity < 0.0) return std::fabs(quantity);
    if (record.GetSide() == TPositionSide::Short && !IsNearZero(quantity)) return quantity;
    return 0;
}

Boolean FindMarketValue(const TCustomPositionData& record, Double& value) {
    return TCustomPositionAdapter::GetInstance()->GetMarketValue(record.GetSymbol(),
                                                                 NetQuantity(record), value);
}

Variant MarketValue(const TCustomPositionData& record) {
    Double value = 0.0;
    if (!FindMarketValue(record, value)) return 0;
    return value;
}

Double TotalPL(const TCustomPositionData& record) {
    return record.GetInitPL() + record.GetExePL();
}

Double UnrealisedPL(const TCustomPositionData& record) {
    return record.GetInitPL() + record.GetExePL() - record.GetRealPL();
}

String Format(const TCustomPositionData& record, Double value, TDisplayDataType type) {
    return TCustomFormatter::GetInstance()->FormatValue(value, type, record.GetSymbol(),
                                                        /*Flag=*/true, nullptr);
}

} // namespace

Variant TCustomPositionDataControl::GetValue(Integer RecordIndex, Integer Attribute) {
    TCustomPositionData* found = Attribute < 0 ? nullptr : RecordAt(RecordIndex);
    if (found == nullptr) return Variant::EmptyText();
    const TCustomPositionData& record = *found;
    // clang-format off
    switch (Attribute) {
    case A::SymbolCode:           return record.GetSymbol();
    case A::LastPrice:            return LivePrice(record, Field::LastPrice);
    case A::LongQuantity:         return LongQuantity(record);
    case A::Account:              return record.GetAccount();
    case A::Exchange:             return ExchangeName(record);
    case A::SymbolName:           return SymbolName(record.GetSymbol());
    case A::Currency:             return CurrencyName(record);
    case A::Expiry:               return ExpiryText(record);
    case A::PreviousClose:        return LivePrice(record, Field::PreviousClose);
    case A::AvailableQuantity:    return GetAvailableQty(found);
    case A::AveragePrice:         return AveragePrice(record);
    case A::NetQuantity:          return NetQuantity(record);
    case A::RealisedPL:           return RoundedAmount(record.GetRealPL(), record.GetSymbol());
    case A::MarketValue:          return MarketValue(record);
    case A::ConvertedMarketValue: return ConvertedMarketValue(record);
    case A::UnrealisedPL:         return RoundedAmount(UnrealisedPL(record), record.GetSymbol());
    case A::ShortQuantity:        return ShortQuantity(record);
    case A::TodayBuyQuantity:     return record.GetTodayBuyQty();
    case A::TodaySellQuantity:    return record.GetTodaySellQty();
    case A::PendingSellQuantity:  return record.GetTodayPendSellQty();
    case A::TotalPL:              return RoundedAmount(TotalPL(record), record.GetSymbol());
    case A::CoveredQuantity:      return record.GetCoveredQty();
    case A::MovedQuantity:        return MovedQuantity(record);
    case A::StartQuantity:        return record.GetBODQuantity();
    default:                      return Variant::EmptyText();
    }
    // clang-format on
}

String TCustomPositionDataControl::GetDisplayValue(Integer RecordIndex, Integer Attribute) {
    TCustomPositionData* found = Attribute < 0 ? nullptr : RecordAt(RecordIndex);
    if (found == nullptr) return EmptyDisplayText;
    const TCustomPositionData& record = *found;
    const Double quantity = record.GetQuantity();
    // clang-format off
    switch (Attribute) {
    case A::LastPrice:            return LivePriceText(record, Field::LastPrice);
    case A::LongQuantity:         return QuantityText(record, quantity, IsNet(record) && quantity > 0.0);
    case A::PreviousClose:        return LivePriceText(record, Field::PreviousClose);
    case A::AvailableQuantity:    return QuantityText(record, GetAvailableQty(found));
    case A::AveragePrice:         return Format(record, AveragePrice(record), DisplayDataType::AveragePrice);
    case A::NetQuantity:          return QuantityText(record, NetQuantity(record));
    case A::RealisedPL:           return AmountText(record.GetRealPL(), record.GetSymbol());
    case A::MarketValue:          return MarketValueText(record);
    case A::ConvertedMarketValue: return ConvertedMarketValueText(record);
    case A::UnrealisedPL:         return AmountText(UnrealisedPL(record), record.GetSymbol());
    case A::ShortQuantity:        return QuantityText(record, std::fabs(quantity), IsNet(record) && quantity < 0.0);
    case A::TodayBuyQuantity:     return QuantityText(record, record.GetTodayBuyQty(), record.GetTodayBuyQty() > ShownTolerance);
    case A::TodaySellQuantity:    return QuantityText(record, record.GetTodaySellQty(), record.GetTodaySellQty() > ShownTolerance);
    case A::PendingSellQuantity:  return QuantityText(record, record.GetTodayPendSellQty());
    case A::TotalPL:              return AmountText(TotalPL(record), record.GetSymbol());
    case A::CoveredQuantity:      return QuantityText(record, record.GetCoveredQty(), ShowsCovered(record));
    case A::MovedQuantity:        return QuantityText(record, MovedQuantity(record), ShowsMoved(record));
    case A::StartQuantity:        return QuantityText(record, Signed(record, record.GetBODQuantity()));
    // Texts and unknown columns: what GetValue answers, which may be empty.
    default:                      return TextOf(GetValue(RecordIndex, Attribute));
    }
    // clang-format on
}

Double TCustomPositionDataControl::AveragePrice(const TCustomPositionData& record) const {
    switch (FAvgPriceMode) {
    case AverageOfIncome: return record.GetAvgPriceIn();
    case AverageFirstInFirstNetted: return record.GetAvgPriceFIFN();
    default: return record.GetAvgPriceMixed();
    }
}

// Without a ratio of the target the raw value is the plain market value.
Variant TCustomPositionDataControl::ConvertedMarketValue(const TCustomPositionData& record) const {
    Double value = 0.0;
    if (!FindMarketValue(record, value)) return 0;
    if (FConvertCurrency.empty()) return value;
    const Double inBase = InBaseCurrency(record, value);
    const Double ratio = RatioOf(FConvertCurrency);
    return ratio == 0.0 ? value : inBase / ratio;
}

// Without a ratio of the target the cell shows the amount in the base currency.
String
TCustomPositionDataControl::ConvertedMarketValueText(const TCustomPositionData& record) const {
    Double value = 0.0;
    if (!FindMarketValue(record, value)) return EmptyDisplayText;
    if (!FConvertCurrency.empty()) {
        value = InBaseCurrency(record, value);
        const Double ratio = RatioOf(FConvertCurrency);
        if (ratio != 0.0) value /= ratio;
    }
    return AmountText(value, record.GetSymbol());
}

String TCustomPositionDataControl::MarketValueText(const TCustomPositionData& record) const {
    Double value = 0.0;
    if (!FindMarketValue(record, value)) return EmptyDisplayText;
    return AmountText(value, record.GetSymbol());
}

Double TCustomPositionDataControl::Signed(const TCustomPositionData& record,
                                          Double quantity) const {
    return record.GetSide() == TPositionSide::Short && FShowNegForShortPos ? -quantity : quantity;
}

String TCustomPositionDataControl::QuantityText(const TCustomPositionData& record, Double quantity,
                                                Boolean shown) const {
    return shown ? Format(record, quantity, DisplayDataType::Quantity) : EmptyDisplayText;
}

String TCustomPositionDataControl::QuantityText(const TCustomPositionData& record,
                                                Double quantity) const {
    return QuantityText(record, quantity, !IsNearZero(quantity));
}

String TCustomPositionDataControl::LivePriceText(const TCustomPositionData& record,
                                                 Integer field) const {
    const TCustomSubItem* ticker = LiveTicker(record);
    if (ticker == nullptr || !ticker->HasField(field)) return EmptyDisplayText;
    return Format(record, ticker->GetFieldDouble(field), DisplayDataType::MarketPrice);
}

} // namespace quorin
