#pragma once

#include "platform/rtl/Types.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

class TCustomLoginCtrl : public TService<TCustomLoginCtrl> {
public:
    // Operations, in order

    // The user is logged in and may trade.
    virtual Boolean IsLogin() const = 0;
};

} // namespace quorin
