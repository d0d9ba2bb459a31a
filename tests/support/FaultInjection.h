#pragma once

#include "tests/support/faults/FaultPlan.h"

#include <memory>
#include <string>

namespace quorin {

class TCustomMessageBoxCtrl;

// Stands around the embedded services, installed in their place for as long as it lives, and makes
// them misbehave in ways that the view layer must survive: they call back inside calls, tell twice,
// tell nothing, or tell of more than has changed; positions go and come back; orders are filled
// before they are answered; a question runs a loop of its own. What they answer stays true, records
// stay valid, nobody is called that is not registered, and the end of every story is the same.
//
// Made before the first control and released after the last one. One at a time.
class TFaultInjection {
public:
    TFaultInjection(TEmbeddedServices& services, unsigned seed);
    ~TFaultInjection();
    TFaultInjection(const TFaultInjection&) = delete;
    TFaultInjection& operator=(const TFaultInjection&) = delete;

    // The variable of the environment that asks for faults; its number is the seed.
    static constexpr const char* Variable = "QUORIN_TEST_FAULTS";
    static bool IsAskedFor();
    // Nil unless the variable asks for it.
    static std::unique_ptr<TFaultInjection> IfAskedFor(TEmbeddedServices& services);

    TFaultPlan& Plan() { return FPlan; }
    // What it takes to see the same faults again.
    std::string Recipe() const;

private:
    struct TServices;

    TEmbeddedServices& FInner;
    TCustomMessageBoxCtrl* const FMessageBox; // the embedded one
    const unsigned FSeed;
    TFaultPlan FPlan;
    std::unique_ptr<TServices> FServices;
};

} // namespace quorin
