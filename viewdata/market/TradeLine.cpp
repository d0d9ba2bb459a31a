#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/market/MarketTradeSideDetector.h"

namespace quorin {

namespace {

constexpr Char Blank = u' ';
constexpr Char TimeSeparator = u':';
// Units that a time takes at most, the blank after it included.
constexpr std::size_t CutWithoutSeconds = 6; // HH:MM
constexpr std::size_t CutWithSeconds = 9;    // HH:MM:SS

std::size_t TimeCut(StringView line) {
    const std::size_t first = line.find(TimeSeparator);
    if (first == StringView::npos) return CutWithoutSeconds;
    const std::size_t second = line.find(TimeSeparator, first + 1);
    return second < CutWithoutSeconds ? CutWithSeconds : CutWithoutSeconds;
}

} // namespace

StringView TMarketDataTrade::Parse(StringView line) {
    const std::size_t blank = line.find(Blank);
    if (blank == StringView::npos) return {};
    const std::size_t cut = TimeCut(line);
    // A quantity that touches the time pushes the blank behind the cut.
    const std::size_t timeLength = blank > cut ? cut : blank;
    const StringView time = line.substr(0, timeLength);
    const StringView rest = Trim(line.substr(timeLength));
    StringView quantity;
    StringView price;
    if (const std::size_t end = rest.find(Blank); end != StringView::npos) {
        quantity = rest.substr(0, end);
        price = rest.substr(end);
    }
    if (!time.empty()) {
        FTime = Trim(time);
        FQty = Trim(quantity);
        FPrice = ToDoubleOr(Trim(price), 0.0);
    }
    return price;
}

} // namespace quorin
