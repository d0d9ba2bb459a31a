#pragma once

#include "viewdata/services/SeriesComparer.h"

namespace quorin {

// Series in natural order: "A2" before "A10", upper and lower case alike, on every exchange.
class TEmbeddedSeriesComparer final : public TCustomSeriesComparer {
public:
    void SortSeries(StringView Exchange, TList<String>& List) const override;
};

} // namespace quorin
