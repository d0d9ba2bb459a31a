#pragma once

#include "viewdata/account/AccountDataControl.h"

#include <utility>

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

// While one is in scope, the kind of a column is known and not looked up. The control may die
// meanwhile.
class TCustomAccountInfoDataControl::TKnownColumn {
public:
    TKnownColumn(TCustomAccountInfoDataControl& control, TColumnKind column)
        : FControl(control), FWatch(control.FLifeline),
          FOuter(std::exchange(control.FSummedColumn, column)) {}
    TKnownColumn(const TKnownColumn&) = delete;
    TKnownColumn& operator=(const TKnownColumn&) = delete;
    ~TKnownColumn() {
        if (FWatch.IsAlive()) FControl.FSummedColumn = FOuter;
    }

private:
    TCustomAccountInfoDataControl& FControl;
    const TLifeline::TWatch FWatch;
    const TColumnKind FOuter;
};

} // namespace quorin
