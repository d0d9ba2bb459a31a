#pragma once

#include "platform/rtl/TList.h"
#include "viewdata/services/ServiceRegistry.h"
#include "viewdata/services/TextComparer.h"

namespace quorin {

// Puts the series of an exchange in the order in which a user expects to find them.
class TCustomSeriesComparer : public TCustomComparer, public TService<TCustomSeriesComparer> {
public:
    // Operations, in order

    // Sorts series codes of `Exchange` in place. Codes that compare equal keep their order.
    virtual void SortSeries(StringView Exchange, TList<String>& List) const = 0;
};

} // namespace quorin
