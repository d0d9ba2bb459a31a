#include "terminal/forms/PositionListForm.h"

#include "viewdata/positionview/AggregatePositionData.h"
#include "viewdata/positionview/PositionViewAttributes.h"

namespace quorin {

namespace {

namespace A = PositionAttribute;

// What is 0.0 while there is no price; and what may well be.
bool IsPriced(Integer attribute) {
    return attribute == A::LastPrice || attribute == A::MarketValue ||
           attribute == PositionViewAttribute::AcceptValue;
}
bool IsGain(Integer attribute) {
    return attribute == A::UnrealisedPL || attribute == A::TotalPL;
}

} // namespace

std::optional<Double> TPositionListForm::MovingNumber(Integer row, Integer attribute) {
    const bool isPriced = IsPriced(attribute);
    if (!isPriced && !IsGain(attribute)) return {};
    Double number = 0.0;
    if (!Value(row, attribute).TryToDouble(number)) return {};
    return isPriced && number == 0.0 ? std::nullopt : std::optional(number);
}

std::size_t TPositionListForm::RowIdentity(Integer row) {
    const TCustomPositionData* record = FRows->Record(View().RecordIndex(row));
    if (record == nullptr) return 0;
    constexpr std::size_t spread = 31;
    const std::hash<StringView> hash;
    const bool isSum = dynamic_cast<const TAggregatePositionData*>(record) != nullptr;
    return (hash(record->GetSymbol()) * spread + hash(record->GetAccount())) * spread +
           static_cast<std::size_t>(isSum);
}

} // namespace quorin
