#include "viewdata/position/PositionRecipes.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"

namespace quorin {

namespace {

String CodeOf(const TCustomPositionData& record,
              const String& (TCustomMarketData::*recordCode)() const, Integer field) {
    if (const TCustomMarketData* data = Market().FindMarketData(record.GetSymbol())) {
        return (data->*recordCode)();
    }
    const TCustomSubItem* ticker = LiveTicker(record);
    return ticker != nullptr ? ticker->FieldText(field) : String();
}

} // namespace

const TPositionDictionary* ChangesOf(Pointer sender, StringView account) {
    if (sender == nullptr) return nullptr;
    TPositionDictionary* const* changes =
        static_cast<const TAccountPositionDictionary*>(sender)->Find(account);
    return changes != nullptr ? *changes : nullptr;
}

const TCustomSubItem* LiveTicker(const TCustomPositionData& record) {
    const TCustomSubItem* ticker = record.GetTicker();
    return ticker != nullptr && ticker->GetStatus() == ItemStatus::Ready ? ticker : nullptr;
}

String ExchangeCode(const TCustomPositionData& record) {
    return CodeOf(record, &TCustomMarketData::GetExchange, Field::Exchange);
}

String CurrencyCode(const TCustomPositionData& record) {
    return CodeOf(record, &TCustomMarketData::GetCurrency, Field::Currency);
}

String ExchangeName(const TCustomPositionData& record) {
    return TranslatedCode(ResourceTag::Exchange, ExchangeCode(record));
}

String CurrencyName(const TCustomPositionData& record) {
    return TranslatedCode(ResourceTag::Currency, CurrencyCode(record));
}

String TradingExchange(const TCustomPositionData& record) {
    String exchange;
    const TCustomSubItem* ticker = record.GetTicker();
    if (ticker != nullptr && ticker->GetStatus() != ItemStatus::Waiting) {
        ticker->GetFieldString(Field::Exchange, exchange);
    }
    if (!exchange.empty()) return exchange;
    const TCustomMarketData* data = Market().FindMarketData(record.GetSymbol());
    return data != nullptr ? data->GetExchange() : exchange;
}

Double InBaseCurrency(const TCustomPositionData& record, Double value) {
    const String currency = CurrencyCode(record);
    return currency.empty() ? value : value * RatioOf(currency);
}

String ExpiryText(const TCustomPositionData& record) {
    if (const TCustomSubItem* ticker = LiveTicker(record)) {
        return ticker->HasField(Field::Expiry) ? ticker->FieldText(Field::Expiry) : String();
    }
    const TCustomMarketData* data = Market().FindMarketData(record.GetSymbol());
    return data != nullptr ? data->GetExpiryMonth() : String();
}

Double RoundedAmount(Double value, StringView symbol) {
    return ToDoubleOr(ReplaceAll(AmountText(value, symbol), u",", u""), value);
}

String AmountText(Double value, StringView symbol) {
    return TCustomFormatter::GetInstance()->FormatValue(value, DisplayDataType::Amount, symbol,
                                                        /*Flag=*/false, nullptr);
}

} // namespace quorin
