#pragma once

#include "embedded/kit/Checker.h"
#include "embedded/kit/Drivers.h"

#include <functional>

namespace quorin {

// One event of a service, to be held against the rules that all registrations and deliveries keep.
struct TEventRow {
    StringView Name; // begins the names of its checks
    std::function<void(TCallRecorder& receiver, TObject* owner)> Register;
    std::function<void(TObject* owner)> Remove;
    // Brings about what the event tells of. The calls come now or with the driver's next Deliver.
    std::function<void()> Change;
    // What is wrong with the sender of a call; empty for nothing. Nil: the sender is not read.
    std::function<String(Pointer sender)> Inspect = nullptr;
};

// Registrations: the same again replaces, removing twice does no harm, nothing calls back inside.
// Deliveries: once per owner, whatever owners add, remove, end or deliver inside their callbacks.
// Leaves no registration behind.
void CheckRegistrationRules(TChecker& check, TServiceDriver& driver, const TEventRow& row);

// For an event that the service never tells of: registering and removing does no harm.
void CheckSilentRegistration(TChecker& check, TServiceDriver& driver, const TEventRow& row);

// What is wrong with a dictionary of records by key; `keyOf(record)` is the key that the record
// says, `wanted` one that must be there. Nil is right.
template <class Dictionary, class KeyOf>
String InspectRecords(Pointer sender, StringView wanted, KeyOf keyOf) {
    if (sender == nullptr) return {};
    const auto& records = *static_cast<const Dictionary*>(sender);
    for (const auto& item : records) {
        if (item.Value == nullptr) return u"a nil record under " + ShowValue(item.Key);
        if (keyOf(*item.Value) != item.Key) {
            return ShowValue(keyOf(*item.Value)) + u" under the key " + ShowValue(item.Key);
        }
    }
    if (!records.ContainsKey(wanted)) return u"nothing under " + ShowValue(wanted);
    return {};
}

// For events whose sender is nil.
inline String InspectNil(Pointer sender) {
    return sender == nullptr ? String() : String(u"a sender that is not nil");
}

} // namespace quorin
