#pragma once

#include "viewdata/services/ClientOrder.h"
#include "viewdata/services/ServiceRegistry.h"

#include <memory>

namespace quorin {

// Makes the orders, of a class of its own, that the action manager beside it takes. A host without
// an order service installs none; callers test GetInstance and come back to it later.
class TCustomOrderAdapter : public TService<TCustomOrderAdapter> {
public:
    // Operations, in order

    // A new, empty order of the caller's own; never nil.
    virtual std::unique_ptr<TCustomClientOrder> CreateClientOrder() = 0;
};

} // namespace quorin
