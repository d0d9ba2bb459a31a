#include "tests/support/faults/FaultPlan.h"

#include "embedded/EmbeddedServices.h"
#include "platform/rtl/ScopedValue.h"
#include "tests/support/faults/FaultyCallbacks.h"

#include <numeric>

namespace quorin {

namespace {

// One in so many calls misbehaves. Look-ups run per cell.
constexpr unsigned RegistrationRate = 2;
constexpr unsigned LookUpRate = 6;

} // namespace

Integer TFaultPlan::HappenedInAll() const {
    return std::accumulate(FHappened.begin(), FHappened.end(), Integer{0});
}

void TFaultPlan::Sweep() {
    for (TFaultyCallbacks* callbacks : FAll) callbacks->Sweep();
}

bool TFaultPlan::CallsInside(unsigned rate) {
    if (!FCallsInside || !FOn || FCallsLeft <= 0 || IsInFault() || !OneIn(rate)) return false;
    --FCallsLeft;
    return true;
}

void TFaultPlan::InRegistration(TFaultyCallbacks& own) {
    if (!CallsInside(RegistrationRate)) return;
    Run([&] {
        Count(TFault::CallInRegistration);
        own.TellAll();
        if (OneIn(2)) TellAny();
    });
}

void TFaultPlan::InLookUp() {
    if (!CallsInside(LookUpRate)) return;
    Run([&] {
        if (TellAny()) Count(TFault::CallInLookUp);
    });
}

void TFaultPlan::InOrder() {
    DeliverAll(TFault::FillInOrder);
}

void TFaultPlan::InQuestion() {
    DeliverAll(TFault::NestedLoop);
    Run([&] {
        for (TFaultyCallbacks* callbacks : FCallbacks) callbacks->TellAll();
    });
}

bool TFaultPlan::TellAny() {
    if (FCallbacks.IsEmpty()) return false;
    const auto count = static_cast<unsigned>(FCallbacks.Count());
    const auto first = static_cast<Integer>(Pick(count));
    for (Integer step = 0; step < FCallbacks.Count(); ++step) { // those without owners are passed
        TFaultyCallbacks& callbacks = *FCallbacks[(first + step) % FCallbacks.Count()];
        if (!callbacks.HasAny()) continue;
        callbacks.TellAll();
        return true;
    }
    return false;
}

// A delivery is no fault in itself: what it tells of is true and counts.
void TFaultPlan::DeliverAll(TFault fault) {
    if (!FOn || FDelivers || IsInFault()) return;
    const TScopedValue delivers(FDelivers, true);
    Count(fault);
    FServices.Deliver();
}

} // namespace quorin
