#include "embedded/MarketFormatterService.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Integer PercentDecimals = 2;
constexpr Double PerCent = 100.0;
constexpr Double PriceTolerance = 1e-9;

bool IsNoPrice(Double price) {
    return std::fabs(price) <= PriceTolerance;
}

const TCustomSubItem* FindItem(StringView symbol) {
    TCustomSubscribeAdapter* items = TCustomSubscribeAdapter::GetInstance();
    if (items == nullptr || symbol.empty()) return nullptr;
    return items->GetSubItem(symbol, LiveDataType, /*Flag=*/false);
}

String FormatInstalled(Double value, TDisplayDataType dataType, StringView symbol) {
    const TCustomFormatter* formatter = TCustomFormatter::GetInstance();
    return formatter != nullptr ? formatter->FormatValue(value, dataType, symbol, true, nullptr)
                                : DoubleToText(value);
}

// What rounds to nothing has no sign.
void AddPlus(String& text, Double value) {
    const bool showsChange = text.find_first_of(u"123456789") != String::npos;
    if (value > 0.0 && showsChange) text.insert(text.begin(), u'+');
}

} // namespace

bool TEmbeddedMarketDataFormatter::FindChange(StringView symbol, TPriceChange& change) const {
    const TCustomSubItem* item = FindItem(symbol);
    if (item == nullptr) return false;
    change.LastPrice = item->GetFieldDouble(Field::LastPrice);
    change.PreviousClose = item->GetFieldDouble(Field::PreviousClose);
    return !IsNoPrice(change.LastPrice) && !IsNoPrice(change.PreviousClose);
}

Boolean TEmbeddedMarketDataFormatter::GetAttribute48Text(StringView Symbol, String& Text) const {
    TPriceChange change;
    if (!FindChange(Symbol, change)) return false;
    const Integer decimals = std::max(FPriceDecimals.Find(Symbol, change.LastPrice),
                                      FPriceDecimals.Find(Symbol, change.PreviousClose));
    const Double value = change.LastPrice - change.PreviousClose;
    Text.clear();
    AppendPrice(Text, value, decimals);
    AddPlus(Text, value);
    return true;
}

void TEmbeddedMarketDataFormatter::GetAttribute48Value(StringView Symbol, Double& Value) const {
    TPriceChange change;
    if (FindChange(Symbol, change)) Value = change.LastPrice - change.PreviousClose;
}

Boolean TEmbeddedMarketDataFormatter::GetAttribute130Text(StringView Symbol, String& Text) const {
    TPriceChange change;
    if (!FindChange(Symbol, change)) return false;
    Double percent = 0.0;
    GetAttribute130Value(Symbol, percent);
    Text.clear();
    AppendDecimals(Text, percent, PercentDecimals, /*grouping=*/false);
    AddPlus(Text, percent);
    Text.push_back(u'%');
    return true;
}

void TEmbeddedMarketDataFormatter::GetAttribute130Value(StringView Symbol, Double& Value) const {
    TPriceChange change;
    if (!FindChange(Symbol, change)) return;
    Value = (change.LastPrice - change.PreviousClose) / std::fabs(change.PreviousClose) * PerCent;
}

Boolean TEmbeddedMarketDataFormatter::FormatPrice(StringView Symbol, Integer Attribute,
                                                  String& Text) const {
    const TCustomSubItem* item = FindItem(Symbol);
    const Double price = item != nullptr ? item->GetFieldDouble(Attribute) : 0.0;
    if (IsNoPrice(price)) return false;
    Text = FormatInstalled(price, DisplayDataType::MarketPrice, Symbol);
    return true;
}

Boolean TEmbeddedMarketDataFormatter::FormatVolume(StringView Symbol, Integer Attribute,
                                                   String& Text) const {
    const TCustomSubItem* item = FindItem(Symbol);
    if (item == nullptr || !item->HasField(Attribute)) return false;
    const Double quantity = item->GetFieldDouble(Attribute);
    if (quantity == 0.0 && item->FieldText(Attribute).empty()) return false;
    Text = FormatInstalled(quantity, DisplayDataType::Quantity, Symbol);
    return true;
}

TDisplayDataType TEmbeddedDataTypeTable::FindDataType(StringView TypeName) const {
    struct TName {
        StringView Name;
        TDisplayDataType DataType;
    };
    static constexpr TName names[] = {
        {u"price", DisplayDataType::MarketPrice}, {u"amount", DisplayDataType::Amount},
        {u"qty", DisplayDataType::Quantity},      {u"ratio", DisplayDataType::Ratio},
        {u"percent", DisplayDataType::Percent},   {u"integer", DisplayDataType::Whole},
    };
    for (const TName& entry : names) {
        if (SameText(entry.Name, TypeName)) return entry.DataType;
    }
    return DisplayDataType::Amount;
}

} // namespace quorin
