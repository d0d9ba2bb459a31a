#include "tests/support/faults/FaultyCallbacks.h"

#include <algorithm>

namespace quorin {

void TFaultyEntry::Called(Pointer sender, Pointer data) {
    if (!FIsAlive) return;
    const TDataCallbackEvent event = FEvent;
    TFaultyCallbacks& list = FList;
    event(sender, data);
    if (!FIsAlive) return;
    if (list.FAfter) {
        list.FAfter(*this, sender);
    } else if (list.FPlan.OneIn(2)) {
        list.FPlan.Run([&] {
            list.FPlan.Count(TFault::Twice);
            event(sender, data);
        });
    }
}

const TFaultyEntry* TFaultyCallbacks::Find(const TObject* owner, StringView key) const {
    const auto found = std::find_if(FEntries.begin(), FEntries.end(), [&](const auto& entry) {
        return entry.FIsAlive && entry.FOwner == owner && entry.FKey == key;
    });
    return found != FEntries.end() ? &*found : nullptr;
}

// The same registration again is the same entry; another callback is another one.
TFaultyEntry& TFaultyCallbacks::Obtain(TObject* owner, StringView key,
                                       const TDataCallbackEvent& event) {
    if (auto* known = const_cast<TFaultyEntry*>(Find(owner, key))) {
        if (known->FEvent == event) return *known;
        known->FIsAlive = false;
    }
    return FEntries.emplace_back(*this, owner, key, event);
}

void TFaultyCallbacks::Remove(TObject* owner, StringView key) {
    if (auto* known = const_cast<TFaultyEntry*>(Find(owner, key))) known->FIsAlive = false;
}

bool TFaultyCallbacks::Has(const TFaultyEntry& other) const {
    return Find(other.FOwner, other.FKey) != nullptr;
}

bool TFaultyCallbacks::HasAny() const {
    return std::any_of(FEntries.begin(), FEntries.end(),
                       [](const auto& entry) { return entry.FIsAlive; });
}

void TFaultyCallbacks::TellAll() {
    std::size_t left = FEntries.size(); // those that come meanwhile wait
    for (auto entry = FEntries.begin(); left > 0; ++entry, --left) {
        if (entry->FIsAlive) FTell(*entry);
    }
}

void TFaultyCallbacks::Sweep() {
    FEntries.remove_if([](const TFaultyEntry& entry) { return !entry.FIsAlive; });
}

} // namespace quorin
