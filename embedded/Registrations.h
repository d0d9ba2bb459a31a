#pragma once

#include "embedded/DeliveryClock.h"
#include "platform/rtl/TList.h"
#include "platform/rtl/TObject.h"

#include <utility>

namespace quorin {

// The callbacks that one service event goes to, one per owner, in the order of registration. A
// delivery stands whatever its receivers do: an owner or another event of an owner that is added
// inside a callback waits for the next delivery, one removed inside a callback is not called any
// more, deliveries may nest.
template <class Event>
class TRegistrations {
public:
    // `clock` numbers the deliveries of the service; it must live longer.
    explicit TRegistrations(const TDeliveryClock& clock) : FClock(clock) {}

    // The same owner again replaces its callback and keeps its place; with the callback that is
    // there it changes nothing. Answers true for an owner that is new.
    bool Add(TObject* owner, const Event& event) {
        if (TEntry* known = FindEntry(owner)) {
            if (known->Callback == event) return false;
            known->Callback = event;
            known->Since = FClock.Last();
            return false;
        }
        FEntries.Add(TEntry{owner, event, FClock.Last()});
        ++FCount;
        return true;
    }
    // Answers false when the owner has no registration here.
    bool Remove(TObject* owner) {
        TEntry* known = FindEntry(owner);
        if (known == nullptr) return false;
        known->Owner = nullptr;
        --FCount;
        if (FDepth == 0) Sweep();
        return true;
    }

    Integer Count() const { return FCount; }
    bool IsEmpty() const { return FCount == 0; }

    // Calls the registrations that existed when the delivery began; `serial` is its number.
    template <class... A>
    void Deliver(TDeliverySerial serial, A... arguments) {
        const TDelivery delivery(*this);
        for (Integer index = 0; index < FEntries.Count(); ++index) {
            const TEntry entry = FEntries[index]; // the list may grow inside the call
            if (entry.Owner != nullptr && entry.Since < serial) entry.Callback(arguments...);
        }
    }

private:
    struct TEntry {
        TObject* Owner; // null once removed
        Event Callback;
        TDeliverySerial Since; // the last delivery that had begun before the callback came
    };
    struct TDelivery {
        explicit TDelivery(TRegistrations& registrations) : Registrations(registrations) {
            ++Registrations.FDepth;
        }
        TDelivery(const TDelivery&) = delete;
        TDelivery& operator=(const TDelivery&) = delete;
        ~TDelivery() {
            if (--Registrations.FDepth == 0) Registrations.Sweep();
        }
        TRegistrations& Registrations;
    };

    TEntry* FindEntry(TObject* owner) {
        for (TEntry& entry : FEntries) {
            if (entry.Owner == owner) return &entry;
        }
        return nullptr;
    }
    void Sweep() {
        if (FEntries.Count() == FCount) return;
        FEntries.RemoveAll([](const TEntry& entry) { return entry.Owner == nullptr; });
    }

    const TDeliveryClock& FClock;
    TList<TEntry> FEntries;
    Integer FCount = 0;
    Integer FDepth = 0;
};

} // namespace quorin
