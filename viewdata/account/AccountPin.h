#pragma once

#include "viewdata/account/AccountDataControl.h"

namespace quorin {

// While one is in scope, nodes that a rebuild drops stay in memory: a service that is asked for
// something may tell of changes inside, and a node is still being read. The control may die
// meanwhile, inside a signal.
class TCustomAccountInfoDataControl::TPin {
public:
    explicit TPin(TCustomAccountInfoDataControl& control)
        : FControl(control), FWatch(control.FLifeline) {
        ++control.FPins;
    }
    TPin(const TPin&) = delete;
    TPin& operator=(const TPin&) = delete;
    ~TPin() {
        if (FWatch.IsAlive() && --FControl.FPins == 0) FControl.ReleaseParked();
    }
    bool IsAlive() const { return FWatch.IsAlive(); }

private:
    TCustomAccountInfoDataControl& FControl;
    const TLifeline::TWatch FWatch;
};

} // namespace quorin
