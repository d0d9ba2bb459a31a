#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/positionview/PositionViewAttributes.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/positionview/PositionViewPin.h"
#include "viewdata/positionview/PricingRules.h"
#include "viewdata/services/Formatter.h"

#include <cmath>
#include <optional>

namespace quorin {

namespace {

namespace A = PositionViewAttribute;
namespace Type = DisplayDataType;

using TNumber = std::optional<Double>; // absent: nothing to show

constexpr Double PercentPerUnit = 100.0;

// A sum has no price of its own, so what is worked out from one says nothing.
Boolean IsBlockedInSums(Integer attribute) {
    switch (attribute) {
    case A::AveragePrice:
    case A::AverageBuyPrice:
    case A::AverageSellPrice:
    case A::RealisedPL:
    case A::MarginRatio:
    case A::UnrealisedPL:
    case A::TotalPL:
    case A::ConvertedAcceptValue:
    case A::AcceptValue: return true;
    default: return false;
    }
}

Boolean IsAbove(Double value) {
    return value > ShownTolerance;
}

// What came in: held in the morning and since. `start` above 0 is of the side that is asked for.
TNumber TotalOf(Double start, Double today) {
    if (IsAbove(start)) return start + today;
    if (IsAbove(today)) return today;
    return std::nullopt;
}

TNumber AverageOf(const TCustomPositionData& record, Double start, Double today, Double amount) {
    if (IsAbove(start)) {
        const Double total = start + today;
        if (!IsAbove(total)) return std::nullopt;
        return (start * pricing::StartPrice(record) + amount) / total;
    }
    if (IsAbove(today)) return amount / today;
    return std::nullopt;
}

TNumber TotalBought(const TCustomPositionData& record) {
    return TotalOf(record.GetBODQuantity(), record.GetTodayBuyQty());
}

TNumber TotalSold(const TCustomPositionData& record) {
    return TotalOf(-record.GetBODQuantity(), record.GetTodaySellQty());
}

TNumber AverageBuyPrice(const TCustomPositionData& record) {
    return AverageOf(record, record.GetBODQuantity(), record.GetTodayBuyQty(),
                     record.GetTodayBuyAmount());
}

TNumber AverageSellPrice(const TCustomPositionData& record) {
    return AverageOf(record, -record.GetBODQuantity(), record.GetTodaySellQty(),
                     record.GetTodaySellAmount());
}

TNumber TodayAverage(Double amount, Double quantity) {
    if (IsNearZero(quantity)) return std::nullopt;
    return amount / quantity;
}

TNumber TodayAverageBuyPrice(const TCustomPositionData& record) {
    return TodayAverage(record.GetTodayBuyAmount(), record.GetTodayBuyQty());
}

TNumber TodayAverageSellPrice(const TCustomPositionData& record) {
    return TodayAverage(record.GetTodaySellAmount(), record.GetTodaySellQty());
}

TNumber TodayOpened(const TCustomPositionData& record) {
    switch (record.GetSide()) {
    case TPositionSide::Long: return record.GetTodayBuyQty();
    case TPositionSide::Short: return record.GetTodaySellQty();
    case TPositionSide::Net: break;
    }
    return std::nullopt;
}

TNumber TodayClosed(const TCustomPositionData& record) {
    switch (record.GetSide()) {
    case TPositionSide::Long: return record.GetTodaySellQty();
    case TPositionSide::Short: return record.GetTodayBuyQty();
    case TPositionSide::Net: break;
    }
    return std::nullopt;
}

Double TodayNetAmount(const TCustomPositionData& record) {
    return record.GetTodayBuyAmount() - record.GetTodaySellAmount();
}

Double TodayNetQuantity(const TCustomPositionData& record) {
    return record.GetTodayBuyQty() - record.GetTodaySellQty();
}

Double Custody(const TCustomPositionData& record) {
    return record.GetCustodianQty() * -1.0;
}

Double NetWithCustody(const TCustomPositionData& record) {
    return NetQuantity(record) + record.GetCustodianQty();
}

String SideText(const TCustomPositionData& record) {
    switch (record.GetSide()) {
    case TPositionSide::Long: return InterfaceText(ResourceKey::Res_Long);
    case TPositionSide::Short: return InterfaceText(ResourceKey::Res_Short);
    case TPositionSide::Net: break;
    }
    return String();
}

Variant Raw(const TNumber& number) {
    if (!number.has_value()) return 0;
    return *number;
}

// The texts of one record's cells, or the empty display.
class TCells {
public:
    TCells(const TCustomPositionData& record, const String& empty)
        : FRecord(record), FEmpty(empty) {}

    // By the product's own decimals.
    String Own(Double value, TDisplayDataType type, Boolean shown = true) const {
        return shown ? Text(value, type, FRecord.GetSymbol(), /*flag=*/true) : FEmpty;
    }
    String Own(const TNumber& number, TDisplayDataType type) const {
        return number.has_value() ? Own(*number, type) : FEmpty;
    }
    // By the general setting of the data type.
    String General(Double value, TDisplayDataType type, Boolean shown = true) const {
        return shown ? Text(value, type, StringView(), /*flag=*/true) : FEmpty;
    }
    // In full precision whatever the settings are.
    String FullAmount(Double value) const {
        return Text(value, Type::Amount, FRecord.GetSymbol(), /*flag=*/false);
    }

private:
    static String Text(Double value, TDisplayDataType type, StringView symbol, Boolean flag) {
        return TCustomFormatter::GetInstance()->FormatValue(value, type, symbol, flag, nullptr);
    }

    const TCustomPositionData& FRecord;
    const String& FEmpty;
};

} // namespace

Variant TPositionViewDataControl::GetValue(Integer RecordIndex, Integer Attribute) {
    if (FAggregated && IsBlockedInSums(Attribute)) return 0;
    TCustomPositionData* found = Attribute < 0 ? nullptr : RecordAt(RecordIndex);
    if (found == nullptr) return Variant::EmptyText();
    const TPin pin(*this);
    TCustomPositionData& record = *found;
    const Boolean isSided = !IsNet(record);
    // clang-format off
    switch (Attribute) {
    case A::Side:                  return SideText(record);
    case A::AveragePrice:          if (isSided) return AverageCostValue(record); break;
    case A::PrincipalType:         return GetPrincipalType(found);
    case A::TotalBought:           return Raw(TotalBought(record));
    case A::TotalSold:             return Raw(TotalSold(record));
    case A::AverageBuyPrice:       return Raw(AverageBuyPrice(record));
    case A::AverageSellPrice:      return Raw(AverageSellPrice(record));
    case A::NetQuantity:           return NetQuantity(record);
    case A::HeldShort:             return record.GetShortQuantity();
    case A::RealisedPL:            if (isSided) return 0; break;
    case A::MarginRatio:           return ProductMarginValue(record);
    case A::UnrealisedPL:          if (isSided) return 0; break;
    case A::TodayBuyQuantity:      return record.GetTodayBuyQty();
    case A::TodaySellQuantity:     return record.GetTodaySellQty();
    case A::PendingBuyQuantity:    return record.GetTodayPendBuyQty();
    case A::Deposited:             return record.GetDepositQty();
    case A::Withdrawn:             return record.GetWithdrawQty();
    case A::ContractSize:          return GetConstractSize(found);
    case A::TotalPL:               if (isSided) return GetPL(found); break;
    case A::TodayNetAmount:        return TodayNetAmount(record);
    case A::TodayNetQuantity:      return TodayNetQuantity(record);
    case A::ConvertedAcceptValue:  return AcceptValue(record, FConvertCurrency);
    case A::AcceptValue:           return AcceptValue(record, StringView());
    case A::CoveredQuantity:       return record.GetCoveredQty();
    case A::MovedQuantity:         return MovedQuantity(record);
    case A::TodayAverageBuyPrice:  return Raw(TodayAverageBuyPrice(record));
    case A::TodayAverageSellPrice: return Raw(TodayAverageSellPrice(record));
    case A::TodayBuyAmount:        return record.GetTodayBuyAmount();
    case A::TodaySellAmount:       return record.GetTodaySellAmount();
    case A::Custody:               return Custody(record);
    case A::NetWithCustody:        return NetWithCustody(record);
    case A::LeftFromStart:         return GetLastQty(found);
    case A::TodayOpened:           return Raw(TodayOpened(record));
    case A::TodayClosed:           return Raw(TodayClosed(record));
    default:                       break;
    }
    // clang-format on
    return Inherited::GetValue(RecordIndex, Attribute);
}

String TPositionViewDataControl::GetDisplayValue(Integer RecordIndex, Integer Attribute) {
    if (FAggregated && IsBlockedInSums(Attribute)) return EmptyDisplayText;
    TCustomPositionData* found = Attribute < 0 ? nullptr : RecordAt(RecordIndex);
    if (found == nullptr) return EmptyDisplayText;
    const TPin pin(*this);
    TCustomPositionData& record = *found;
    const Boolean isSided = !IsNet(record);
    const TCells cells(record, EmptyDisplayText);
    const Double net = NetQuantity(record);
    const Double bought = record.GetTodayBuyQty();
    const Double sold = record.GetTodaySellQty();
    // clang-format off
    switch (Attribute) {
    case A::AveragePrice:          if (isSided) return AverageCostText(record); break;
    case A::TotalBought:           return cells.Own(TotalBought(record), Type::Quantity);
    case A::TotalSold:             return cells.Own(TotalSold(record), Type::Quantity);
    case A::AverageBuyPrice:       return cells.Own(AverageBuyPrice(record), Type::AveragePrice);
    case A::AverageSellPrice:      return cells.Own(AverageSellPrice(record), Type::AveragePrice);
    case A::NetQuantity:           return cells.Own(Signed(record, net), Type::Quantity, !IsNearZero(net));
    case A::HeldShort:             return cells.General(record.GetShortQuantity(), Type::Quantity, !IsNearZero(record.GetShortQuantity()));
    case A::RealisedPL:            if (isSided) return EmptyDisplayText; break;
    case A::MarginRatio:           return ProductMarginText(record);
    case A::UnrealisedPL:          if (isSided) return EmptyDisplayText; break;
    case A::TodayBuyQuantity:      return cells.Own(bought, Type::Quantity, IsAbove(bought));
    case A::TodaySellQuantity:     return cells.Own(sold, Type::Quantity, IsAbove(sold));
    case A::PendingBuyQuantity:    return cells.General(record.GetTodayPendBuyQty(), Type::Quantity, IsAbove(record.GetTodayPendBuyQty()));
    case A::Deposited:             return cells.General(record.GetDepositQty(), Type::Quantity, IsAbove(record.GetDepositQty()));
    case A::Withdrawn:             return cells.General(record.GetWithdrawQty(), Type::Quantity, IsAbove(record.GetWithdrawQty()));
    case A::ContractSize: {
        const Double size = GetConstractSize(found);
        return cells.Own(size, Type::Quantity, !IsNearZero(size));
    }
    case A::TotalPL:               if (isSided) return cells.FullAmount(GetPL(found)); break;
    case A::TodayNetAmount:        return cells.General(TodayNetAmount(record), Type::Amount, HasTraded(record));
    case A::TodayNetQuantity:      return cells.General(TodayNetQuantity(record), Type::Quantity, HasTraded(record) && !IsNearZero(TodayNetQuantity(record)));
    case A::ConvertedAcceptValue:  return AcceptValueText(record, FConvertCurrency);
    case A::AcceptValue:           return AcceptValueText(record, StringView());
    case A::CoveredQuantity:       return CoveredText(record);
    case A::MovedQuantity:         return cells.Own(MovedQuantity(record), Type::Quantity, ShowsMoved(record));
    case A::TodayAverageBuyPrice:  return cells.Own(TodayAverageBuyPrice(record), Type::AveragePrice);
    case A::TodayAverageSellPrice: return cells.Own(TodayAverageSellPrice(record), Type::AveragePrice);
    case A::TodayBuyAmount:        return cells.General(record.GetTodayBuyAmount(), Type::Amount, IsAbove(bought));
    case A::TodaySellAmount:       return cells.General(record.GetTodaySellAmount(), Type::Amount, IsAbove(sold));
    case A::Custody:               return cells.General(Custody(record), Type::Quantity, !IsNearZero(record.GetCustodianQty()));
    case A::NetWithCustody:        return cells.General(NetWithCustody(record), Type::Quantity);
    case A::LeftFromStart: {
        const Double left = GetLastQty(found);
        return cells.Own(left, Type::Quantity, !IsNearZero(left));
    }
    case A::TodayOpened:           return cells.Own(TodayOpened(record), Type::Quantity);
    case A::TodayClosed:           return cells.Own(TodayClosed(record), Type::Quantity);
    default:                       break;
    }
    // clang-format on
    return Inherited::GetDisplayValue(RecordIndex, Attribute);
}

Variant TPositionViewDataControl::AverageCostValue(TCustomPositionData& record) {
    Double price = 0.0;
    if (!GetAvgPrice(&record, price)) return 0;
    return price;
}

String TPositionViewDataControl::AverageCostText(TCustomPositionData& record) {
    Double price = 0.0;
    const Boolean shown = GetAvgPrice(&record, price);
    return TCells(record, EmptyDisplayText).Own(price, Type::AveragePrice, shown);
}

Variant TPositionViewDataControl::ProductMarginValue(TCustomPositionData& record) {
    Double ratio = 0.0;
    if (!GetProductMargin(&record, ratio)) return 0;
    return ratio;
}

String TPositionViewDataControl::ProductMarginText(TCustomPositionData& record) {
    Double ratio = 0.0;
    const Boolean shown = GetProductMargin(&record, ratio);
    return TCells(record, EmptyDisplayText).General(ratio * PercentPerUnit, Type::Percent, shown);
}

Variant TPositionViewDataControl::AcceptValue(TCustomPositionData& record, StringView currency) {
    Double value = 0.0;
    if (!GetAcceptValue(&record, currency, value)) return 0;
    return value;
}

String TPositionViewDataControl::AcceptValueText(TCustomPositionData& record, StringView currency) {
    Double value = 0.0;
    const Boolean shown = GetAcceptValue(&record, currency, value);
    return TCells(record, EmptyDisplayText).General(value, Type::Amount, shown);
}

String TPositionViewDataControl::CoveredText(const TCustomPositionData& record) const {
    const Double covered = record.GetCoveredQty();
    const Boolean shown = ShowsCovered(record) && record.GetSide() != TPositionSide::Long;
    return TCells(record, EmptyDisplayText).Own(Signed(record, covered), Type::Quantity, shown);
}

} // namespace quorin
