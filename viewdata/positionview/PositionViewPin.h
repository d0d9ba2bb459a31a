#pragma once

#include "viewdata/positionview/PositionViewDataControl.h"

namespace quorin {

// While one is in scope, aggregate rows that a rebuild drops stay in memory: a service that is
// asked for a value may tell of changes inside, and the row is still being read.
class TPositionViewDataControl::TPin {
public:
    explicit TPin(TPositionViewDataControl& control) : FControl(control) { ++FControl.FPins; }
    TPin(const TPin&) = delete;
    TPin& operator=(const TPin&) = delete;
    ~TPin() {
        --FControl.FPins;
        if (!FControl.HoldsRows()) FControl.FParkedRows.clear();
    }

private:
    TPositionViewDataControl& FControl;
};

} // namespace quorin
