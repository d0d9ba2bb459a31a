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

void TFaultyMarketAdapter::AddExchangeListener(const TDataCallbackEvent& Event, TObject* Owner) {
    FExchanges.Register(Owner, {}, Event,
                        [&](const auto& event) { FInner.AddExchangeListener(event, Owner); });
    FPlan.InRegistration(FExchanges);
}

void TFaultyMarketAdapter::RemoveExchangeListener(TObject* Owner) {
    FExchanges.Remove(Owner, {});
    FInner.RemoveExchangeListener(Owner);
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

void TFaultyMarketAdapter::RemoveFavoriteListener(TObject* Owner) {
    FFavorites.Remove(Owner, {});
    FInner.RemoveFavoriteListener(Owner);
}

void TFaultyMarketAdapter::AddSpreadListener(const TDataCallbackEvent& Event, TObject* Owner) {
    FSpreads.Register(Owner, {}, Event,
                      [&](const auto& event) { FInner.AddSpreadListener(event, Owner); });
    FPlan.InRegistration(FSpreads);
}

void TFaultyMarketAdapter::RemoveSpreadListener(TObject* Owner) {
    FSpreads.Remove(Owner, {});
    FInner.RemoveSpreadListener(Owner);
}

Integer TFaultyMarketAdapter::GetMarketStatus(StringView Exchange) const {
    return LookedUp(FInner.GetMarketStatus(Exchange));
}

Integer TFaultyMarketAdapter::GetExchangeCount() const {
    return LookedUp(FInner.GetExchangeCount());
}

const String& TFaultyMarketAdapter::GetExchangeCode(Integer Index) const {
    return FInner.GetExchangeCode(Index);
}

Integer TFaultyMarketAdapter::GetSeriesCount(StringView Exchange) const {
    return LookedUp(FInner.GetSeriesCount(Exchange));
}

const String& TFaultyMarketAdapter::GetSeriesCode(StringView Exchange, Integer Index) const {
    return FInner.GetSeriesCode(Exchange, Index);
}

Integer TFaultyMarketAdapter::GetFavoriteCount() const {
    return LookedUp(FInner.GetFavoriteCount());
}

const String& TFaultyMarketAdapter::GetFavoriteSymbol(Integer Index) const {
    return FInner.GetFavoriteSymbol(Index);
}

Boolean TFaultyMarketAdapter::AddFavorite(StringView Symbol) {
    const Boolean added = FInner.AddFavorite(Symbol);
    if (added) FPlan.InRegistration(FFavorites);
    return added;
}

Boolean TFaultyMarketAdapter::RemoveFavorite(StringView Symbol) {
    const Boolean removed = FInner.RemoveFavorite(Symbol);
    if (removed) FPlan.InRegistration(FFavorites);
    return removed;
}

void TFaultyMarketAdapter::RemoveFavorites(std::span<const String> Symbols, Integer High) {
    const Integer before = FInner.GetFavoriteCount();
    FInner.RemoveFavorites(Symbols, High);
    if (FInner.GetFavoriteCount() != before) FPlan.InRegistration(FFavorites);
}

String TFaultyMarketAdapter::GetSymbolName(StringView Symbol, TAppLanguage Language) const {
    return LookedUp(FInner.GetSymbolName(Symbol, Language));
}

Boolean TFaultyMarketAdapter::IsMarketDataReady() const {
    return LookedUp(FInner.IsMarketDataReady());
}

Integer TFaultyMarketAdapter::GetMarketDataCount(StringView Exchange, StringView Series) const {
    return LookedUp(FInner.GetMarketDataCount(Exchange, Series));
}

TCustomMarketData* TFaultyMarketAdapter::GetMarketDataAt(StringView Exchange, StringView Series,
                                                         Integer Index) const {
    return LookedUp(FInner.GetMarketDataAt(Exchange, Series, Index));
}

TCustomSeriesData* TFaultyMarketAdapter::FindSeries(StringView Code) const {
    return LookedUp(FInner.FindSeries(Code));
}

TCustomCategoryData* TFaultyMarketAdapter::FindCategory(Integer CategoryID) const {
    return LookedUp(FInner.FindCategory(CategoryID));
}

TCustomMarketData* TFaultyMarketAdapter::FindMarketData(StringView Symbol) const {
    return LookedUp(FInner.FindMarketData(Symbol));
}

TCustomSpreadTable* TFaultyMarketAdapter::FindSpreadTable(StringView SpreadCode) {
    if (!FPlan.IsOn()) return FInner.FindSpreadTable(SpreadCode);
    const String code(SpreadCode);
    TCustomSpreadTable* table = FInner.FindSpreadTable(code);
    if (table != nullptr && table->GetStatus() == SpreadTableLoaded) FLoaded.Add(code, table);
    return LookedUp(table);
}

TCustomMarketData* TFaultyMarketAdapter::GetFavoriteMarketData(Integer Index) const {
    return LookedUp(FInner.GetFavoriteMarketData(Index));
}

Boolean TFaultyMarketAdapter::IsFavorite(StringView Symbol) const {
    return LookedUp(FInner.IsFavorite(Symbol));
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

TCustomSubItem* TFaultySubscribeAdapter::GetSubItem(StringView Key, StringView DataType,
                                                    Boolean Flag) {
    TCustomSubItem* item = FInner.GetSubItem(Key, DataType, Flag);
    FPlan.InLookUp();
    return item;
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
