#include "embedded/MarginFeed.h"

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
