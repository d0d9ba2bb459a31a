#include "tests/support/faults/MarketFaults.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/FieldNumbers.h"

#include <algorithm>

namespace quorin {

TFaultyMarketAdapter::TFaultyMarketAdapter(TFaultPlan& plan, TEmbeddedMarketAdapter& inner)
    : FPlan(plan), FInner(inner), FExchanges(plan, &TellNothing),
      FFavorites(plan, &TellNothing, /*isLocal=*/true),
      FSpreads(plan, [this](TFaultyEntry& entry) { TellSpreads(entry); }) {}

// All tables that are there, or none of them.
void TFaultyMarketAdapter::TellSpreads(TFaultyEntry& entry) {
    TSpreadDictionary tables;
    if (FPlan.OneIn(2)) {
        for (const auto& [code, table] : FLoaded) tables.Add(code, table);
    }
    FPlan.Count(TFault::NamesMore);
    entry.Tell(&tables);
}

// The new owner alone hears inside: others would reload for nothing.
void TFaultyMarketAdapter::AddFavoriteListener(const TDataCallbackEvent& Event, TObject* Owner) {
    TFaultyEntry& entry = FFavorites.Register(
        Owner, {}, Event, [&](const auto& event) { FInner.AddFavoriteListener(event, Owner); });
    FPlan.Run([&] {
        FPlan.Count(TFault::CallInRegistration);
        entry.Tell(nullptr);
    });
}

TCustomSpreadTable* TFaultyMarketAdapter::FindSpreadTable(StringView SpreadCode) {
    if (!FPlan.IsOn()) return FInner.FindSpreadTable(SpreadCode);
    const String code(SpreadCode);
    TCustomSpreadTable* table = FInner.FindSpreadTable(code);
    if (table != nullptr && table->GetStatus() == SpreadTableLoaded) FLoaded.Add(code, table);
    return FPlan.LookedUp(table);
}

TFaultySubscribeAdapter::TFaultySubscribeAdapter(TFaultPlan& plan, TEmbeddedSubscribeAdapter& inner)
    : FPlan(plan), FInner(inner),
      FBatches(plan, [this](TFaultyEntry& entry) { TellBatch(entry); }) {
    FBatches.SetAfter([this](TFaultyEntry& entry, Pointer) {
        if (!FPlan.OneIn(3)) return;
        FPlan.Run([&] { TellBatch(entry); });
    });
}

TFaultySubscribeAdapter::TFollowing&
TFaultySubscribeAdapter::FollowingOf(TObject* owner, const TDataCallbackEvent& event) {
    for (TFollowing& following : FFollowings) {
        if (following.Owner == owner && following.Event == event) return following;
    }
    const String serial = IntegerToText(FFollowingCount++);
    return FFollowings.emplace_back(
        TFollowing{owner, event, &FBatches.Obtain(owner, serial, event), {}});
}

void TFaultySubscribeAdapter::Leave(TCustomSubItem& item, TObject* owner,
                                    const TFollowing* butFor) {
    FFollowings.remove_if([&](TFollowing& following) {
        if (following.Owner != owner || &following == butFor) return false;
        if (!following.Items.Remove(item.GetKey()) || !following.Items.IsEmpty()) return false;
        FBatches.End(*following.Entry);
        return true;
    });
}

bool TFaultySubscribeAdapter::Follows(const TObject* owner, StringView key) const {
    return std::any_of(FFollowings.begin(), FFollowings.end(), [&](const TFollowing& following) {
        return following.Owner == owner && following.Items.ContainsKey(key);
    });
}

void TFaultySubscribeAdapter::Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event,
                                        TObject* Owner) {
    TFollowing& following = FollowingOf(Owner, Event);
    following.Items.AddOrSetValue(Item->GetKey(), Item);
    Leave(*Item, Owner, &following);
    FInner.Subscribe(Item, TFaultyCallbacks::EventOf(*following.Entry), Owner);
    FPlan.InRegistration(FBatches);
}

void TFaultySubscribeAdapter::Unsubscribe(TCustomSubItem* Item, TObject* Owner) {
    Leave(*Item, Owner, nullptr);
    FInner.Unsubscribe(Item, Owner);
}

// Items that the owner does not follow, and the margins that it does.
TSubItemDictionary TFaultySubscribeAdapter::HarmlessBatch(const TFollowing& following) const {
    TSubItemDictionary batch;
    FInner.EachItem([&](TEmbeddedSubItem& item) {
        const bool isMargin = item.GetKey().starts_with(SpanKeyPrefix);
        if (isMargin ? following.Items.ContainsKey(item.GetKey())
                     : !Follows(following.Owner, item.GetKey())) {
            batch.Add(item.GetKey(), &item);
        }
    });
    return batch;
}

void TFaultySubscribeAdapter::TellBatch(TFaultyEntry& entry) {
    if (FPlan.OneIn(3)) {
        FPlan.Count(TFault::NilSender);
        entry.Tell(nullptr);
        return;
    }
    for (const TFollowing& following : FFollowings) {
        if (following.Entry != &entry) continue;
        TSubItemDictionary batch = HarmlessBatch(following);
        FPlan.Count(TFault::NamesMore);
        entry.Tell(&batch);
        return;
    }
}

} // namespace quorin
