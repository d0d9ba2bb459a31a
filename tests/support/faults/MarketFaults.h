#pragma once

#include "embedded/MarketService.h"
#include "embedded/SubscribeService.h"
#include "tests/support/faults/FaultyCallbacks.h"

#include <list>

namespace quorin {

// The static universe, misbehaving. Favourites are told of only where they have changed: their
// reload forgets which way the prices moved.
class TFaultyMarketAdapter final : public TCustomMarketAdapter {
public:
    TFaultyMarketAdapter(TFaultPlan& plan, TEmbeddedMarketAdapter& inner);

    void AddExchangeListener(const TDataCallbackEvent& Event, TObject* Owner) override {
        FExchanges.Add(FInner, &TCustomMarketAdapter::AddExchangeListener, Event, Owner);
    }
    void RemoveExchangeListener(TObject* Owner) override {
        FExchanges.Remove(FInner, &TCustomMarketAdapter::RemoveExchangeListener, Owner);
    }
    void AddFavoriteListener(const TDataCallbackEvent& Event, TObject* Owner) override;
    void RemoveFavoriteListener(TObject* Owner) override {
        FFavorites.Remove(FInner, &TCustomMarketAdapter::RemoveFavoriteListener, Owner);
    }
    void AddSpreadListener(const TDataCallbackEvent& Event, TObject* Owner) override {
        FSpreads.Add(FInner, &TCustomMarketAdapter::AddSpreadListener, Event, Owner);
    }
    void RemoveSpreadListener(TObject* Owner) override {
        FSpreads.Remove(FInner, &TCustomMarketAdapter::RemoveSpreadListener, Owner);
    }
    Integer GetMarketStatus(StringView Exchange) const override {
        return FPlan.LookedUp(FInner.GetMarketStatus(Exchange));
    }
    Integer GetExchangeCount() const override { return FPlan.LookedUp(FInner.GetExchangeCount()); }
    Integer GetSeriesCount(StringView Exchange) const override {
        return FPlan.LookedUp(FInner.GetSeriesCount(Exchange));
    }
    Integer GetFavoriteCount() const override { return FPlan.LookedUp(FInner.GetFavoriteCount()); }
    String GetSymbolName(StringView Symbol, TAppLanguage Language) const override {
        return FPlan.LookedUp(FInner.GetSymbolName(Symbol, Language));
    }
    Boolean IsMarketDataReady() const override {
        return FPlan.LookedUp(FInner.IsMarketDataReady());
    }
    Integer GetMarketDataCount(StringView Exchange, StringView Series) const override {
        return FPlan.LookedUp(FInner.GetMarketDataCount(Exchange, Series));
    }
    TCustomMarketData* GetMarketDataAt(StringView Exchange, StringView Series,
                                       Integer Index) const override {
        return FPlan.LookedUp(FInner.GetMarketDataAt(Exchange, Series, Index));
    }
    TCustomSeriesData* FindSeries(StringView Code) const override {
        return FPlan.LookedUp(FInner.FindSeries(Code));
    }
    TCustomCategoryData* FindCategory(Integer CategoryID) const override {
        return FPlan.LookedUp(FInner.FindCategory(CategoryID));
    }
    TCustomMarketData* FindMarketData(StringView Symbol) const override {
        return FPlan.LookedUp(FInner.FindMarketData(Symbol));
    }
    TCustomMarketData* GetFavoriteMarketData(Integer Index) const override {
        return FPlan.LookedUp(FInner.GetFavoriteMarketData(Index));
    }
    Boolean IsFavorite(StringView Symbol) const override {
        return FPlan.LookedUp(FInner.IsFavorite(Symbol));
    }
    const String& GetExchangeCode(Integer Index) const override {
        return FInner.GetExchangeCode(Index);
    }
    const String& GetSeriesCode(StringView Exchange, Integer Index) const override {
        return FInner.GetSeriesCode(Exchange, Index);
    }
    const String& GetFavoriteSymbol(Integer Index) const override {
        return FInner.GetFavoriteSymbol(Index);
    }
    Boolean AddFavorite(StringView Symbol) override { return Changed(FInner.AddFavorite(Symbol)); }
    Boolean RemoveFavorite(StringView Symbol) override {
        return Changed(FInner.RemoveFavorite(Symbol));
    }
    void RemoveFavorites(std::span<const String> Symbols, Integer High) override {
        const Integer before = FInner.GetFavoriteCount();
        FInner.RemoveFavorites(Symbols, High);
        Changed(FInner.GetFavoriteCount() != before);
    }
    TCustomSpreadTable* FindSpreadTable(StringView SpreadCode) override;

private:
    Boolean Changed(Boolean changed) { // the favourites
        if (changed) FPlan.InRegistration(FFavorites);
        return changed;
    }
    void TellSpreads(TFaultyEntry& entry);

    TFaultPlan& FPlan;
    TEmbeddedMarketAdapter& FInner;
    TSpreadDictionary FLoaded; // tick tables that were asked for and are there
    TFaultyCallbacks FExchanges;
    TFaultyCallbacks FFavorites;
    TFaultyCallbacks FSpreads;
};

// Live items, misbehaving: batches that name nothing, nobody's items, or margins once more. A price
// is never told twice: the second time it has not moved. Realtime listeners are the items' own and
// are told as ever.
class TFaultySubscribeAdapter final : public TCustomSubscribeAdapter {
public:
    TFaultySubscribeAdapter(TFaultPlan& plan, TEmbeddedSubscribeAdapter& inner);

    void Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event, TObject* Owner) override;
    void Unsubscribe(TCustomSubItem* Item, TObject* Owner) override;
    TCustomSubItem* GetSubItem(StringView Key, StringView DataType, Boolean Flag) override {
        return FPlan.LookedUp(FInner.GetSubItem(Key, DataType, Flag));
    }

private:
    struct TFollowing { // of one owner with one event
        TObject* Owner;
        TDataCallbackEvent Event;
        TFaultyEntry* Entry;
        TSubItemDictionary Items;
    };

    TFollowing& FollowingOf(TObject* owner, const TDataCallbackEvent& event);
    void Leave(TCustomSubItem& item, TObject* owner, const TFollowing* butFor);
    bool Follows(const TObject* owner, StringView key) const;
    TSubItemDictionary HarmlessBatch(const TFollowing& following) const;
    void TellBatch(TFaultyEntry& entry);

    TFaultPlan& FPlan;
    TEmbeddedSubscribeAdapter& FInner;
    std::list<TFollowing> FFollowings; // with one item at least
    Integer FFollowingCount = 0;       // so far
    TFaultyCallbacks FBatches;
};

} // namespace quorin
