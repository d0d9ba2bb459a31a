#pragma once

#include "tests/support/ForwardingMarket.h"

namespace quorin {

// A market adapter around another one whose listed universe has holes and doubles, as a feed that
// is not done yet may show it: each exchange lists an empty series code and a series without a
// record besides its own, and each series begins with a nil and names its last record twice.
class THollowMarket : public TForwardingMarket {
public:
    using TForwardingMarket::TForwardingMarket;

    Integer GetSeriesCount(StringView exchange) const override {
        return Inner.GetSeriesCount(exchange) + Holes;
    }
    const String& GetSeriesCode(StringView exchange, Integer index) const override {
        static const String codes[Holes] = {u"", u"NORECORD"};
        return index < Holes ? codes[index] : Inner.GetSeriesCode(exchange, index - Holes);
    }
    Integer GetMarketDataCount(StringView exchange, StringView series) const override {
        return Inner.GetMarketDataCount(exchange, series) + 2;
    }
    TCustomMarketData* GetMarketDataAt(StringView exchange, StringView series,
                                       Integer index) const override {
        const Integer last = Inner.GetMarketDataCount(exchange, series) - 1;
        return Inner.GetMarketDataAt(exchange, series, index > last + 1 ? last : index - 1);
    }

private:
    static constexpr Integer Holes = 2;
};

} // namespace quorin
