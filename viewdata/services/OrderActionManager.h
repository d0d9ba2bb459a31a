#pragma once

#include "viewdata/services/OrderRecords.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// The road of a prepared order to the market.
class TCustomOrderActionManager : public TService<TCustomOrderActionManager> {
public:
    // Operations, in order

    // Takes the order as it stands; true when it was taken, false when it was refused. `Owner` is
    // nil, `Action` OrderAction::Place and `Flag` True. On return the order may be cleared and
    // used again. What the order leads to, fills above all, is delivered later.
    virtual Boolean TakeOrderAction(TObject* Owner, TCustomClientOrder* Order, Integer Action,
                                    Boolean Flag) = 0;
};

} // namespace quorin
