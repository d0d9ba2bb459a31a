#pragma once

#include "embedded/Registrations.h"
#include "platform/rtl/TDictionary.h"

#include <memory>

namespace quorin {

// Registrations that are kept under a key besides their owner: an account, a channel, a group. A
// list once made stays in its place, so that a delivery goes on while its receivers register under
// other keys.
template <class Key, class Event>
class TKeyedRegistrations {
    using View = typename TKeyTraits<Key>::View;

public:
    // As TRegistrations.
    explicit TKeyedRegistrations(const TDeliveryClock& clock) : FClock(clock) {}

    void Add(View key, TObject* owner, const Event& event) {
        std::unique_ptr<TRegistrations<Event>>& list = FLists.Obtain(key);
        if (list == nullptr) list = std::make_unique<TRegistrations<Event>>(FClock);
        list->Add(owner, event);
    }
    void Remove(View key, TObject* owner) {
        if (TRegistrations<Event>* list = Find(key)) list->Remove(owner);
    }
    Integer Count() const {
        Integer count = 0;
        for (const auto& item : FLists) count += item.Value->Count();
        return count;
    }
    // Calls the owners under `key`, if there are any. A delivery that calls under many keys, or in
    // many lists, has one serial for all.
    template <class... A>
    void Deliver(TDeliverySerial serial, View key, A... arguments) {
        if (TRegistrations<Event>* list = Find(key)) list->Deliver(serial, arguments...);
    }

private:
    TRegistrations<Event>* Find(View key) {
        const auto* list = FLists.Find(key);
        return list != nullptr ? list->get() : nullptr;
    }

    const TDeliveryClock& FClock;
    TDictionary<Key, std::unique_ptr<TRegistrations<Event>>> FLists;
};

} // namespace quorin
