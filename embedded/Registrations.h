#pragma once

#include "platform/rtl/TList.h"
#include "platform/rtl/TObject.h"

#include <utility>

namespace quorin {

// The callbacks that one service event goes to, one per owner, in the order of registration. A
// delivery stands whatever its receivers do: an owner added inside a callback waits for the next
// delivery, one removed inside a callback is not called any more, deliveries may nest.
template <class Event>
class TRegistrations {
public:
    // The same owner again replaces its callback and keeps its place.
    void Add(TObject* owner, const Event& event) {
        if (TEntry* known = FindEntry(owner)) {
            known->Callback = event;
        } else {
            FEntries.Add(TEntry{owner, event});
            ++FCount;
        }
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
    // The owner's callback, good until the list changes; nil when it has no registration here.
    const Event* Find(TObject* owner) const {
        const TEntry* known = const_cast<TRegistrations*>(this)->FindEntry(owner);
        return known != nullptr ? &known->Callback : nullptr;
    }
    bool Has(TObject* owner) const { return Find(owner) != nullptr; }

    // Calls `call(owner, event)` for each registration that existed when the delivery began.
    template <class Call>
    void Each(Call call) {
        const TDelivery delivery(*this);
        const Integer end = FEntries.Count();
        for (Integer index = 0; index < end; ++index) {
            const TEntry entry = FEntries[index]; // the list may grow inside the call
            if (entry.Owner != nullptr) call(entry.Owner, entry.Callback);
        }
    }
    template <class... A>
    void Deliver(A... arguments) {
        Each([&](TObject*, const Event& event) { event(arguments...); });
    }

private:
    struct TEntry {
        TObject* Owner; // null once removed
        Event Callback;
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

    TList<TEntry> FEntries;
    Integer FCount = 0;
    Integer FDepth = 0;
};

} // namespace quorin
