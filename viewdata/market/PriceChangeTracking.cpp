#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/FieldNumbers.h"

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

} // namespace quorin
