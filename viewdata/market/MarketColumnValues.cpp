#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/market/MarketTexts.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/MarketDataFormatter.h"
#include "viewdata/services/PositionAdapter.h"
#include "viewdata/services/PositionData.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

namespace {

namespace A = MarketAttribute;

constexpr Double QuantityTolerance = 1e-7; // a quantity up to this size counts as flat
constexpr Double LongSide = 1.0;
constexpr Double ShortSide = -1.0;

// The code that a symbol's record holds, or where there is no record its twin in the live item.
String CodeOf(StringView symbol, const TCustomSubItem& item,
              const String& (TCustomMarketData::*recordCode)() const, Integer field) {
    const TCustomMarketData* record = Market().FindMarketData(symbol);
    return record != nullptr ? (record->*recordCode)() : item.FieldText(field);
}

String TextIfPresent(const TCustomSubItem& item, Integer field) {
    return item.HasField(field) ? item.FieldText(field) : String();
}

String MarketState(const TCustomSubItem& item) {
    if (!item.HasField(Field::MarketState)) return String();
    return ResourceText(ResourceTag::MarketState, item.FieldText(Field::MarketState));
}

String ExchangeName(StringView symbol, const TCustomSubItem& item) {
    return TranslatedCode(ResourceTag::Exchange,
                          CodeOf(symbol, item, &TCustomMarketData::GetExchange, Field::Exchange));
}

String CurrencyName(StringView symbol, const TCustomSubItem& item) {
    return TranslatedCode(ResourceTag::Currency,
                          CodeOf(symbol, item, &TCustomMarketData::GetCurrency, Field::Currency));
}

String CallOrPut(const TCustomSubItem& item) {
    String text = TextIfPresent(item, Field::CallPut);
    switch (OptionKindOf(text)) {
    case TOptionKind::Call: return InterfaceText(ResourceKey::Res_Call);
    case TOptionKind::Put: return InterfaceText(ResourceKey::Res_Put);
    case TOptionKind::None: break;
    }
    return text;
}

String Expiry(StringView symbol, const TCustomSubItem& item) {
    if (item.HasField(Field::Expiry)) return item.FieldText(Field::Expiry);
    const TCustomMarketData* record = Market().FindMarketData(symbol);
    return record != nullptr ? record->GetExpiryMonth() : String();
}

String SeriesName(StringView symbol, const TCustomSubItem& item) {
    const String code = CodeOf(symbol, item, &TCustomMarketData::GetSeries, Field::Series);
    const TCustomSeriesData* series = Market().FindSeries(code);
    return series != nullptr ? NameInLanguage(*series) : code;
}

Double Change(StringView symbol) {
    Double value = 0.0;
    TCustomMarketDataFormatter::GetInstance()->GetAttribute48Value(symbol, value);
    return value;
}

Double ChangePercent(StringView symbol) {
    Double value = 0.0;
    TCustomMarketDataFormatter::GetInstance()->GetAttribute130Value(symbol, value);
    return value;
}

// A descendant's GetValue may answer anything: what is no number counts as 0.0.
Double NumberOf(const Variant& value) {
    Double number = 0.0;
    value.TryToDouble(number);
    return number;
}

} // namespace

Variant TCustomMarketDataControl::GetValue(Integer RecordIndex, Integer Attribute) {
    if (!FDataList.Has(RecordIndex) || Attribute < 0) return Variant::EmptyText();
    const String& symbol = FDataList[RecordIndex];
    TCustomSubItem& item =
        *TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/false);
    if (Attribute >= FirstCustomColumn) return GetFieldValue(&item, Attribute);
    // clang-format off
    switch (Attribute) {
    case A::SymbolCode:      return symbol;
    case A::BestBid:         return item.GetFieldDouble(Field::BestBid);
    case A::BestAsk:         return item.GetFieldDouble(Field::BestAsk);
    case A::LastPrice:       return item.GetFieldDouble(Field::LastPrice);
    case A::LongPosition:    return PositionSize(symbol, LongSide);
    case A::MarketState:     return MarketState(item);
    case A::BestBidQuantity: return item.GetFieldDouble(Field::BestBidQuantity);
    case A::Volume:          return item.GetFieldDouble(Field::Volume);
    case A::BestAskQuantity: return item.GetFieldDouble(Field::BestAskQuantity);
    case A::Exchange:        return ExchangeName(symbol, item);
    case A::SymbolName:      return SymbolName(symbol);
    case A::Currency:        return CurrencyName(symbol, item);
    case A::StrikePrice:     return item.GetFieldDouble(Field::StrikePrice);
    case A::CallPut:         return CallOrPut(item);
    case A::Expiry:          return Expiry(symbol, item);
    case A::PreviousClose:   return item.GetFieldDouble(Field::PreviousClose);
    case A::HighPrice:       return item.GetFieldDouble(Field::HighPrice);
    case A::Remark:          return TextIfPresent(item, Field::Remark);
    case A::LowPrice:        return item.GetFieldDouble(Field::LowPrice);
    case A::Change:          return Change(symbol);
    case A::ChangePercent:   return ChangePercent(symbol);
    case A::OpenPrice:       return item.GetFieldDouble(Field::OpenPrice);
    case A::SeriesName:      return SeriesName(symbol, item);
    case A::ShortPosition:   return PositionSize(symbol, ShortSide);
    case A::RequiredMargin:  return RequiredMargin(symbol);
    default:                 return Variant::EmptyText();
    }
    // clang-format on
}

String TCustomMarketDataControl::GetDisplayValue(Integer RecordIndex, Integer Attribute) {
    if (!FDataList.Has(RecordIndex) || Attribute < 0) return EmptyDisplayText;
    const String& symbol = FDataList[RecordIndex];
    if (Attribute >= FirstCustomColumn) return CustomColumnText(RecordIndex, Attribute, symbol);
    // clang-format off
    switch (Attribute) {
    case A::BestBid:         return PriceText(symbol, Attribute);
    case A::BestAsk:         return PriceText(symbol, Attribute);
    case A::LastPrice:       return PriceText(symbol, Attribute);
    case A::LongPosition:    return PositionText(RecordIndex, Attribute, symbol);
    case A::BestBidQuantity: return VolumeText(symbol, Attribute);
    case A::Volume:          return VolumeText(symbol, Attribute);
    case A::BestAskQuantity: return VolumeText(symbol, Attribute);
    case A::StrikePrice:     return StrikePriceText(symbol);
    case A::PreviousClose:   return PriceText(symbol, Attribute);
    case A::HighPrice:       return PriceText(symbol, Attribute);
    case A::LowPrice:        return PriceText(symbol, Attribute);
    case A::Change:          return ChangeText(symbol);
    case A::ChangePercent:   return ChangePercentText(symbol);
    case A::OpenPrice:       return PriceText(symbol, Attribute);
    case A::ShortPosition:   return PositionText(RecordIndex, Attribute, symbol);
    case A::RequiredMargin:  return RequiredMarginText(symbol);
    // Texts and unknown columns: what GetValue answers, which may be empty.
    default:                 return TextOf(GetValue(RecordIndex, Attribute));
    }
    // clang-format on
}

Variant TCustomMarketDataControl::PositionSize(StringView symbol, Double side) const {
    const TCustomPositionData* position =
        TCustomPositionAdapter::GetInstance()->GetPosition(FAccount, symbol);
    if (position == nullptr) return 0.0;
    const Double size = position->GetQuantity() * side;
    return size > QuantityTolerance ? size : 0.0;
}

String TCustomMarketDataControl::PositionText(Integer RecordIndex, Integer Attribute,
                                              const String& symbol) {
    const String named(symbol);
    const Double size = NumberOf(GetValue(RecordIndex, Attribute));
    if (!(size > 0.0)) return EmptyDisplayText;
    return TCustomFormatter::GetInstance()->FormatValue(size, DisplayDataType::Quantity, named,
                                                        /*Flag=*/true, nullptr);
}

// Only what the maker of a text says there is replaces the empty display.
template <class Maker>
String TCustomMarketDataControl::ShownText(Maker make) const {
    String text;
    if (!make(text)) text = EmptyDisplayText;
    return text;
}

// The recipes that call out more than once keep the symbol themselves: its row may go meanwhile.
Double TCustomMarketDataControl::RequiredMargin(StringView symbol) {
    Double value = 0.0;
    const String named(symbol);
    GetRequireMargin(named, value);
    return value;
}

String TCustomMarketDataControl::RequiredMarginText(StringView symbol) {
    const String named(symbol);
    return ShownText([&](String& text) { return GetRequireMargin(named, text); });
}

// Only options have a strike to show, whatever the field holds.
String TCustomMarketDataControl::StrikePriceText(StringView symbol) const {
    TCustomMarketData* const* record = FDataDictionary.Find(symbol);
    if (record == nullptr || (*record)->GetProductType() != ProductType::Options) {
        return EmptyDisplayText;
    }
    return PriceText(symbol, A::StrikePrice);
}

String TCustomMarketDataControl::PriceText(StringView symbol, Integer attribute) const {
    return ShownText([&](String& text) {
        return TCustomMarketDataFormatter::GetInstance()->FormatPrice(symbol, attribute, text);
    });
}

String TCustomMarketDataControl::VolumeText(StringView symbol, Integer attribute) const {
    return ShownText([&](String& text) {
        return TCustomMarketDataFormatter::GetInstance()->FormatVolume(symbol, attribute, text);
    });
}

String TCustomMarketDataControl::ChangeText(StringView symbol) const {
    return ShownText([&](String& text) {
        return TCustomMarketDataFormatter::GetInstance()->GetAttribute48Text(symbol, text);
    });
}

String TCustomMarketDataControl::ChangePercentText(StringView symbol) const {
    return ShownText([&](String& text) {
        return TCustomMarketDataFormatter::GetInstance()->GetAttribute130Text(symbol, text);
    });
}

String TCustomMarketDataControl::CustomColumnType(Integer attribute) const {
    return TCustomLanguageManager::GetInstance()->GetResourceAttribute(
        FCustomColumnTagID, IntegerToText(attribute - FirstCustomColumn), ResourceAttribute::Type);
}

Variant TCustomMarketDataControl::GetFieldValue(TCustomSubItem* Item, Integer Attribute) {
    const Integer field = Attribute - FirstCustomColumn;
    if (!IsNumericColumnType(CustomColumnType(Attribute))) return TextIfPresent(*Item, field);
    if (!Item->HasField(field)) return 0;
    return Item->GetFieldDouble(field);
}

String TCustomMarketDataControl::CustomColumnText(Integer RecordIndex, Integer Attribute,
                                                  const String& symbol) {
    const String named(symbol);
    const String type = CustomColumnType(Attribute);
    if (!IsNumericColumnType(type)) return TextOf(GetValue(RecordIndex, Attribute));
    const TCustomSubItem* item =
        TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/false);
    if (!item->HasField(Attribute - FirstCustomColumn)) return EmptyDisplayText;
    const TDisplayDataType dataType = GetDataType(type);
    const Double value = NumberOf(GetValue(RecordIndex, Attribute));
    return TCustomFormatter::GetInstance()->FormatValue(value, dataType, named, /*Flag=*/true,
                                                        nullptr);
}

} // namespace quorin
