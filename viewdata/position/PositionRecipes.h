#pragma once

#include "viewdata/services/PositionData.h"
#include "viewdata/services/SubscribeAdapter.h"

namespace quorin {

// What the position views say of a record beside its own figures.

// Up to this size, whatever the sign, a quantity or price shows nothing.
inline constexpr Double ShownTolerance = 1e-7;

inline Boolean IsNearZero(Double value) {
    return value <= ShownTolerance && value >= -ShownTolerance;
}

// What an update says of one account; nil for nothing. `sender` is a TAccountPositionDictionary or
// nil.
const TPositionDictionary* ChangesOf(Pointer sender, StringView account);

inline Boolean IsNet(const TCustomPositionData& record) {
    return record.GetSide() == TPositionSide::Net;
}

// Bought or sold today.
inline Boolean HasTraded(const TCustomPositionData& record) {
    return record.GetTodayBuyQty() > ShownTolerance || record.GetTodaySellQty() > ShownTolerance;
}

// Deposited less withdrawn, and whether there was either.
inline Double MovedQuantity(const TCustomPositionData& record) {
    return record.GetDepositQty() - record.GetWithdrawQty();
}
inline Boolean ShowsMoved(const TCustomPositionData& record) {
    return record.GetDepositQty() > ShownTolerance || record.GetWithdrawQty() > ShownTolerance;
}

// A covered quantity says something only where there was or is something to cover.
inline Boolean ShowsCovered(const TCustomPositionData& record) {
    return !IsNearZero(record.GetCoveredQty()) &&
           (!IsNearZero(record.GetBODQuantity()) || HasTraded(record));
}

// What is held in the end.
inline Double NetQuantity(const TCustomPositionData& record) {
    return record.GetQuantity() - record.GetShortQuantity();
}

// The record's live item while its fields are valid; nil otherwise.
const TCustomSubItem* LiveTicker(const TCustomPositionData& record);

// The code that the product's market record holds, without a record its twin in the live ticker.
String ExchangeCode(const TCustomPositionData& record);
String CurrencyCode(const TCustomPositionData& record);
// The same, translated.
String ExchangeName(const TCustomPositionData& record);
String CurrencyName(const TCustomPositionData& record);

// The exchange by the ticker, in any state but waiting, or by the market record; empty where
// neither says.
String TradingExchange(const TCustomPositionData& record);

// The value in the base currency; as it is for a product without a currency.
Double InBaseCurrency(const TCustomPositionData& record, Double value);

// When a future or option expires; empty where it does not say.
String ExpiryText(const TCustomPositionData& record);

// The number as an amount is shown, so that the raw value and the cell agree to the last decimal;
// the number itself where that text is no number.
Double RoundedAmount(Double value, StringView symbol);
String AmountText(Double value, StringView symbol);

} // namespace quorin
