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

    void AddExchangeListener(const TDataCallbackEvent& Event, TObject* Owner) override;
    void RemoveExchangeListener(TObject* Owner) override;
    void AddFavoriteListener(const TDataCallbackEvent& Event, TObject* Owner) override;
    void RemoveFavoriteListener(TObject* Owner) override;
    void AddSpreadListener(const TDataCallbackEvent& Event, TObject* Owner) override;
    void RemoveSpreadListener(TObject* Owner) override;
    Integer GetMarketStatus(StringView Exchange) const override;
    Integer GetExchangeCount() const override;
    const String& GetExchangeCode(Integer Index) const override;
    Integer GetSeriesCount(StringView Exchange) const override;
    const String& GetSeriesCode(StringView Exchange, Integer Index) const override;
    Integer GetFavoriteCount() const override;
    const String& GetFavoriteSymbol(Integer Index) const override;
    Boolean AddFavorite(StringView Symbol) override;
    Boolean RemoveFavorite(StringView Symbol) override;
    void RemoveFavorites(std::span<const String> Symbols, Integer High) override;
    String GetSymbolName(StringView Symbol, TAppLanguage Language) const override;
    Boolean IsMarketDataReady() const override;
    Integer GetMarketDataCount(StringView Exchange, StringView Series) const override;
    TCustomMarketData* GetMarketDataAt(StringView Exchange, StringView Series,
                                       Integer Index) const override;
    TCustomSeriesData* FindSeries(StringView Code) const override;
    TCustomCategoryData* FindCategory(Integer CategoryID) const override;
    TCustomMarketData* FindMarketData(StringView Symbol) const override;
    TCustomSpreadTable* FindSpreadTable(StringView SpreadCode) override;
    TCustomMarketData* GetFavoriteMarketData(Integer Index) const override;
    Boolean IsFavorite(StringView Symbol) const override;

private:
    // What a look-up answers, once others have been called inside it.
    template <class Answer>
    Answer LookedUp(Answer answer) const {
        FPlan.InLookUp();
        return answer;
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
    TCustomSubItem* GetSubItem(StringView Key, StringView DataType, Boolean Flag) override;

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
