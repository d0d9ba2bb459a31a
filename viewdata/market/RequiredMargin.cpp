#include "platform/rtl/Numbers.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Char SeriesOptionsMark = u'*'; // behind a series code: the options of that series

// What the search for a margin needs to know of a symbol.
struct TMarginProduct {
    Integer ProductType = 0;
    String Underlyer;
    String Series;
};

TMarginProduct ProductOf(StringView symbol) {
    TMarginProduct product;
    if (const TCustomMarketData* record =
            TCustomMarketAdapter::GetInstance()->FindMarketData(symbol)) {
        product.Underlyer = record->GetUnderlyer();
        product.Series = record->GetSeries();
        product.ProductType = record->GetProductType();
        return product;
    }
    const TCustomSubItem& item =
        *TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true);
    if (item.GetStatus() != ItemStatus::Ready) return product;
    product.Underlyer = item.FieldText(Field::Underlyer);
    product.Series = item.FieldText(Field::Series);
    product.ProductType = ToIntegerOr(item.FieldText(Field::ProductType), 0);
    return product;
}

} // namespace

Boolean TCustomMarketDataControl::GetRequireMargin(StringView Symbol, String& Margin) {
    const String symbol(Symbol); // the search subscribes, and the caller's row may go meanwhile
    Double value = 0.0;
    if (!GetRequireMargin(symbol, value)) return false;
    Margin = TCustomFormatter::GetInstance()->FormatValue(value, DisplayDataType::Amount, symbol,
                                                          /*Flag=*/true, nullptr);
    return true;
}

// From the symbol over the options of its series and its underlyer to the series. The search goes
// on only where the service has said that a key has no data: while an item still waits it stops,
// and SpanUpdate brings the view back.
Boolean TCustomMarketDataControl::GetRequireMargin(StringView Symbol, Double& Margin) {
    const String symbol(Symbol);
    const TMarginProduct product = ProductOf(symbol);
    const Boolean isOption = product.ProductType == ProductType::Options;
    if (product.ProductType != ProductType::Futures && !isOption) return false;

    Boolean found = false;
    const TCustomSubItem* item = &SearchMargin(symbol, found, Margin);
    const auto hasNoData = [&item] { return item->GetStatus() == ItemStatus::NoData; };
    if (hasNoData() && isOption && !product.Series.empty()) {
        item = &SearchMargin(product.Series + SeriesOptionsMark, found, Margin);
    }
    if (hasNoData() && !product.Underlyer.empty()) {
        item = &SearchMargin(product.Underlyer, found, Margin);
    }
    if (hasNoData() && !product.Series.empty()) {
        SearchMargin(product.Series, found, Margin);
    }
    return found;
}

// The margin item of a code; subscribes it at the first look. A margin found earlier in the same
// search stands.
const TCustomSubItem& TCustomMarketDataControl::SearchMargin(const String& code, Boolean& found,
                                                             Double& margin) {
    const String key = String(SpanKeyPrefix) + code;
    TCustomSubscribeAdapter& feed = *TCustomSubscribeAdapter::GetInstance();
    TCustomSubItem* item = feed.GetSubItem(key, LiveDataType, /*Flag=*/true);
    if (FSubscribedSpanDataList.Add(key, item)) {
        feed.Subscribe(item, MakeEvent<&TCustomMarketDataControl::SpanUpdate>(this), this);
        if (!FSpanList.ContainsKey(code)) ProcessMarginValue(item);
    }
    if (!found) found = FSpanList.TryGetValue(code, margin);
    return *item;
}

// The largest figure counts. A code without one stays unknown and is looked at again.
void TCustomMarketDataControl::ProcessMarginValue(TCustomSubItem* Item) {
    if (Item->GetStatus() != ItemStatus::Ready) return;
    Double margin = 0.0;
    for (Integer field = Field::FirstMargin; field <= Field::LastMargin; ++field) {
        if (Item->HasField(field)) margin = std::max(margin, std::abs(Item->GetFieldDouble(field)));
    }
    if (!(margin > 0.0)) return;
    const StringView code = StringView(Item->GetKey()).substr(SpanKeyPrefix.size());
    FSpanList.AddOrSetValue(code, margin);
}

void TCustomMarketDataControl::SpanUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr) return;
    Boolean followed = false;
    for (const auto& [key, item] : *static_cast<const TSubItemDictionary*>(Sender)) {
        if (!FSubscribedSpanDataList.ContainsKey(key)) continue;
        ProcessMarginValue(item);
        followed = true;
    }
    if (followed) FireDataChanged();
}

} // namespace quorin
