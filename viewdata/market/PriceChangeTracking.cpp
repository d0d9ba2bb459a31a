#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/FieldNumbers.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Double LastPriceTolerance = 1e-7;

TPriceChangeState StateOfMove(Double before, Double now) {
    if (now - before > LastPriceTolerance) return pcsUp;
    if (before - now > LastPriceTolerance) return pcsDown;
    return pcsNone;
}

// Any difference counts.
TPriceChangeState StateOfDifference(Double reference, Double value) {
    if (value > reference) return pcsUp;
    if (reference > value) return pcsDown;
    return pcsNone;
}

const TCustomSubItem& FollowedItem(StringView symbol) {
    return *TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType,
                                                               /*Flag=*/true);
}

} // namespace

// The first update of a symbol has a price and no move yet.
void TCustomMarketDataControl::TrackLastPrice(const TCustomSubItem& item) {
    const String& symbol = item.GetKey();
    const Double price = item.GetFieldDouble(Field::LastPrice);
    Double* last = FLastPriceList.Find(symbol);
    if (last == nullptr) {
        FLastPriceList.Add(symbol, price);
        return;
    }
    FLastMoveTick.AddOrSetValue(symbol, StateOfMove(*last, price));
    *last = price;
}

Boolean TCustomMarketDataControl::GetLastPriceMoveTick(Integer RecordIndex,
                                                       TPriceChangeState& UpDownTick) {
    if (!FDataList.Has(RecordIndex)) return false;
    return FLastMoveTick.TryGetValue(FDataList[RecordIndex], UpDownTick);
}

Boolean TCustomMarketDataControl::GetPriceChangeState(Integer RecordIndex, Integer Attribute,
                                                      TPriceChangeState& PriceState) {
    if (!FDataList.Has(RecordIndex)) return false;
    const TCustomSubItem& item = FollowedItem(FDataList[RecordIndex]);
    if (!item.HasField(Attribute) || !item.HasField(Field::PreviousClose)) return false;
    PriceState = StateOfDifference(item.GetFieldDouble(Field::PreviousClose),
                                   item.GetFieldDouble(Attribute));
    return true;
}

Boolean TCustomMarketDataControl::GetPriceMoveTickChangeState(Integer RecordIndex,
                                                              Integer Attribute,
                                                              TPriceChangeState& PriceState) {
    if (!FDataList.Has(RecordIndex)) return false;
    const TCustomSubItem& item = FollowedItem(FDataList[RecordIndex]);
    if (!item.HasField(Attribute)) return false;
    PriceState = pcsNone;
    const Double value = item.GetFieldDouble(Attribute);
    TDictionary<Integer, Double>& seen = FRefreshPriceList.Obtain(item.GetKey());
    Double* before = seen.Find(Attribute);
    if (before == nullptr) {
        seen.Add(Attribute, value);
        return true;
    }
    PriceState = StateOfDifference(*before, value);
    *before = value;
    return true;
}

void TCustomMarketDataControl::WidenExtents(const TCustomSubItem& item) {
    TList<TFieldExtent>* extents = FExtents.IsEmpty() ? nullptr : FExtents.Find(item.GetKey());
    if (extents == nullptr) return;
    for (TFieldExtent& extent : *extents) {
        const Double value = item.GetFieldDouble(extent.Attribute);
        extent.Low = std::min(extent.Low, value);
        extent.High = std::max(extent.High, value);
    }
}

Boolean TCustomMarketDataControl::GetExtremeMove(Integer RecordIndex, Integer Attribute,
                                                 TPriceChangeState& PriceState) {
    if (!FDataList.Has(RecordIndex)) return false;
    const TCustomSubItem& item = FollowedItem(FDataList[RecordIndex]);
    if (!item.HasField(Attribute)) return false;
    PriceState = pcsNone;
    const Double value = item.GetFieldDouble(Attribute);
    TList<TFieldExtent>& extents = FExtents.Obtain(item.GetKey());
    const auto found = std::find_if(extents.begin(), extents.end(), [&](const TFieldExtent& seen) {
        return seen.Attribute == Attribute;
    });
    if (found == extents.end()) {
        extents.Add({Attribute, value, value, value});
        return true;
    }
    const Double rise = std::max(found->High, value) - found->Seen;
    const Double fall = found->Seen - std::min(found->Low, value);
    if (rise > 0.0 || fall > 0.0) PriceState = rise >= fall ? pcsUp : pcsDown;
    *found = {Attribute, value, value, value};
    return true;
}

} // namespace quorin
