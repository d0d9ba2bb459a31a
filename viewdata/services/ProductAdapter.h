#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/ProductData.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// Margin ratios by product and account. A host may have no such service: callers test GetInstance.
class TCustomProductAdapter : public TService<TCustomProductAdapter> {
public:
    // Operations, in order

    // Margin ratios changed. `Sender`: nil.
    virtual void AddProductMarginRatioCallback(const TDataCallbackEvent& Callback,
                                               TObject* Owner) = 0;
    virtual void RemoveProductMarginRatioCallback(TObject* Owner) = 0;
    // Nil when nothing particular is known.
    virtual TCustomProductData* GetProductData(StringView Symbol, StringView Account) const = 0;
};

} // namespace quorin
