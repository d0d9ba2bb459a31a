#include "viewdata/market/MarketDataControl.h"

// Neither product information nor margin is worked out yet.

namespace quorin {

String TCustomMarketDataControl::GetProductInfo(Integer) {
    return String();
}

Boolean TCustomMarketDataControl::GetRequireMargin(StringView, String&) {
    return false;
}

Boolean TCustomMarketDataControl::GetRequireMargin(StringView, Double&) {
    return false;
}

void TCustomMarketDataControl::SpanUpdate(Pointer, Pointer) {}

void TCustomMarketDataControl::ProcessMarginValue(TCustomSubItem*) {}

} // namespace quorin
