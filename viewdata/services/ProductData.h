#pragma once

#include "platform/rtl/TObject.h"

namespace quorin {

// What is particular to one product in one account.
class TCustomProductData : public TObject {
    QUORIN_CLASS(TCustomProductData, TObject)
public:
    // Operations, in order

    // The part of a position's value that margin may lend, 0.6 for 60 %. Means nothing unless
    // HasMarginRatio.
    virtual Double GetMarginRatio() const = 0;
    virtual Boolean HasMarginRatio() const = 0;
};

} // namespace quorin
