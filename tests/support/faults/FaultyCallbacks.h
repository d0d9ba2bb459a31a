#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TEvent.h"
#include "tests/support/faults/FaultPlan.h"

#include <functional>
#include <list>

namespace quorin {

// One registration as the faulty service sees it. The embedded service calls Called in its place.
class TFaultyEntry {
public:
    // What the owner of a position list has been told of, in order; empty for any other.
    struct TTold {
        TDictionary<String, bool> Open;
        String Last; // the latest that came after the registration; empty for none
    };

    TFaultyEntry(TFaultyCallbacks& list, TObject* owner, StringView key,
                 const TDataCallbackEvent& event)
        : FList(list), FOwner(owner), FKey(key), FEvent(event) {}

    const String& Key() const { return FKey; }
    TTold& Told() { return FTold; }
    const TTold& Told() const { return FTold; }
    // Tells the owner, if it is still registered.
    void Tell(Pointer sender) {
        if (!FIsAlive) return;
        const TDataCallbackEvent event = FEvent; // the call may register another
        event(sender, nullptr);
    }

private:
    friend class TFaultyCallbacks;

    // The embedded service tells.
    void Called(Pointer sender, Pointer data);

    TFaultyCallbacks& FList;
    TObject* const FOwner;
    const String FKey;
    const TDataCallbackEvent FEvent;
    TTold FTold;
    bool FIsAlive = true;
};

// The registrations of one operation of a faulty service, beside those of the embedded one. Entries
// stay until Sweep, so that one may be removed while it is called.
class TFaultyCallbacks {
public:
    // Tells one owner something true that it did not ask for, or nothing.
    using TTell = std::function<void(TFaultyEntry&)>;
    // What happens after the embedded service has told an owner.
    using TAfter = std::function<void(TFaultyEntry&, Pointer sender)>;

    // `tell` is used at any time, or only inside a registration where `isLocal`.
    TFaultyCallbacks(TFaultPlan& plan, TTell tell, bool isLocal = false)
        : FPlan(plan), FTell(std::move(tell)) {
        plan.Join(*this, isLocal);
    }
    TFaultyCallbacks(const TFaultyCallbacks&) = delete;
    TFaultyCallbacks& operator=(const TFaultyCallbacks&) = delete;

    // Instead of telling twice.
    void SetAfter(TAfter after) { FAfter = std::move(after); }

    // Keeps the registration and lets `add(event)` make it at the embedded service.
    template <class Add>
    TFaultyEntry& Register(TObject* owner, StringView key, const TDataCallbackEvent& event,
                           Add add) {
        TFaultyEntry& entry = Obtain(owner, key, event);
        add(EventOf(entry));
        return entry;
    }
    // Registers, and then somebody may be called inside.
    template <class Add>
    void RegisterAndCall(TObject* owner, StringView key, const TDataCallbackEvent& event, Add add) {
        Register(owner, key, event, add);
        FPlan.InRegistration(*this);
    }
    // The same by an operation of `inner` that takes no key, and the end of it.
    template <class Inner, class Service>
    void Add(Inner& inner, void (Service::*add)(const TDataCallbackEvent&, TObject*),
             const TDataCallbackEvent& event, TObject* owner) {
        RegisterAndCall(owner, {}, event, [&](const auto& own) { (inner.*add)(own, owner); });
    }
    template <class Inner, class Service>
    void Remove(Inner& inner, void (Service::*remove)(TObject*), TObject* owner) {
        Remove(owner, {});
        (inner.*remove)(owner);
    }
    TFaultyEntry& Obtain(TObject* owner, StringView key, const TDataCallbackEvent& event);
    static TDataCallbackEvent EventOf(TFaultyEntry& entry) {
        return MakeEvent<&TFaultyEntry::Called>(&entry);
    }
    void Remove(TObject* owner, StringView key);
    void End(TFaultyEntry& entry) { entry.FIsAlive = false; }

    bool HasAny() const;
    // The owner of an entry of another list is registered here under the same key.
    bool Has(const TFaultyEntry& other) const;
    // Tells all owners that are registered now.
    void TellAll();
    // Lets go of entries that have ended.
    void Sweep();

private:
    friend class TFaultyEntry;
    const TFaultyEntry* Find(const TObject* owner, StringView key) const;

    TFaultPlan& FPlan;
    TTell FTell;
    TAfter FAfter;
    std::list<TFaultyEntry> FEntries;
};

// For events that name nothing: `Sender` is nil.
inline void TellNothing(TFaultyEntry& entry) {
    entry.Tell(nullptr);
}

} // namespace quorin
