#include "embedded/MarginFeed.h"

#include "embedded/MarketUniverse.h"

#include <algorithm>
#include <cmath>

namespace quorin {

TMarginFeed::~TMarginFeed() {
    if (FItems.PrefixFeed() == this) FItems.SetPrefixFeed({}, nullptr);
}

void TMarginFeed::FeedMargin(StringView code, const TMarginFigures& figures) {
    const String key = String(SpanKeyPrefix) + String(code);
    FMargins.Obtain(key) = figures;
    TEmbeddedSubItem* item = FItems.FindItem(key);
    if (item != nullptr && item->GetStatus() != ItemStatus::Waiting) Write(*item, figures);
}

const TMarginFigures* TMarginFeed::FindFigures(StringView code, StringView suffix) const {
    if (code.empty()) return nullptr;
    FKey.assign(SpanKeyPrefix).append(code).append(suffix);
    return FMargins.Find(FKey);
}

Double TMarginFeed::Requirement(const TEmbeddedMarketData* symbol) const {
    if (symbol == nullptr || FMargins.IsEmpty()) return 0.0;
    const TMarginFigures* figures = FindFigures(symbol->GetSymbol());
    const bool isOption = symbol->GetProductType() == ProductType::Options;
    if (figures == nullptr && isOption) figures = FindFigures(symbol->GetSeries(), u"*");
    if (figures == nullptr) figures = FindFigures(symbol->GetUnderlyer());
    if (figures == nullptr) figures = FindFigures(symbol->GetSeries());
    Double most = 0.0;
    if (figures == nullptr) return most;
    for (const std::optional<Double>& figure : *figures) {
        most = std::max(most, std::fabs(figure.value_or(0.0)));
    }
    return most;
}

void TMarginFeed::Requested(TEmbeddedSubItem& item) {
    if (const TMarginFigures* figures = FMargins.Find(item.GetKey())) {
        Write(item, *figures);
        return;
    }
    item.SetStatus(ItemStatus::NoData);
    FItems.Touch(item);
}

void TMarginFeed::Write(TEmbeddedSubItem& item, const TMarginFigures& figures) {
    Integer fieldNo = Field::FirstMargin;
    for (const std::optional<Double>& figure : figures) {
        if (figure.has_value()) {
            item.SetField(fieldNo, *figure);
        } else {
            item.ClearField(fieldNo);
        }
        ++fieldNo;
    }
    item.SetStatus(ItemStatus::Ready);
    FItems.Touch(item);
}

} // namespace quorin
