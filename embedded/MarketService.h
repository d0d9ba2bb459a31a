#pragma once

#include "embedded/MarketSessions.h"
#include "embedded/MarketUniverse.h"
#include "embedded/OrderMarket.h"
#include "embedded/Registrations.h"
#include "embedded/SpreadTable.h"
#include "embedded/SubscribeService.h"
#include "viewdata/services/MarketAdapter.h"

#include <deque>
#include <span>
#include <utility>
#include <vector>

namespace quorin {

// The static universe in memory, with favourites and tick tables. Listeners hear of changes when
// the host calls Deliver. While it lives it fills the new live items of known symbols with what the
// records say.
class TEmbeddedMarketAdapter final : public TCustomMarketAdapter, private TItemFiller {
public:
    // `items` must live longer.
    explicit TEmbeddedMarketAdapter(TEmbeddedSubscribeAdapter& items);
    ~TEmbeddedMarketAdapter() override;

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
    Integer GetFavoriteCount() const override { return FFavorites.Count(); }
    const String& GetFavoriteSymbol(Integer Index) const override;
    Boolean AddFavorite(StringView Symbol) override;
    Boolean RemoveFavorite(StringView Symbol) override;
    void RemoveFavorites(std::span<const String> Symbols, Integer High) override;
    String GetSymbolName(StringView Symbol, TAppLanguage Language) const override;
    Boolean IsMarketDataReady() const override { return FIsReady; }
    Integer GetMarketDataCount(StringView Exchange, StringView Series) const override;
    TCustomMarketData* GetMarketDataAt(StringView Exchange, StringView Series,
                                       Integer Index) const override;
    TCustomSeriesData* FindSeries(StringView Code) const override;
    TCustomCategoryData* FindCategory(Integer CategoryID) const override;
    TCustomMarketData* FindMarketData(StringView Symbol) const override;
    TCustomSpreadTable* FindSpreadTable(StringView SpreadCode) override;
    TCustomMarketData* GetFavoriteMarketData(Integer Index) const override;
    Boolean IsFavorite(StringView Symbol) const override;

    // Feeding: as in TMarketUniverse, with the next delivery to the exchange listeners. An item
    // that exists already shows its new record in the fields that were not fed: a ready one gets a
    // touch, one that had no data waits for them again.
    bool AddExchange(const TExchangeRecord& record);
    bool AddCategory(const TCategoryRecord& record);
    bool AddSeries(const TSeriesRecord& record);
    const TEmbeddedMarketData* AddSymbol(const TSymbolRecord& record);
    void Reserve(Integer symbols) { FUniverse.Reserve(symbols); }
    // Calls `add(universe)`, which may throw: then nothing of what it has added stays.
    template <class Add>
    void AddAll(Add add) {
        const TMarketUniverse::TMark mark = FUniverse.Mark();
        try {
            add(FUniverse);
        } catch (...) {
            FUniverse.BackTo(mark);
            throw;
        }
        BindItems();
    }
    const TMarketUniverse& Universe() const { return FUniverse; }

    // The switch that IsMarketDataReady answers with; on from the start.
    void SetMarketDataReady(bool isReady);
    // Also of all live items of the exchange, whatever state was fed to them, and touches them.
    // False for an unknown exchange.
    bool SetMarketState(StringView exchange, StringView stateKey, Integer marketStatus);

    // The day of each exchange, for whoever moves the market through it.
    void SetSessions(TMarketSessions sessions) { FSessions = std::move(sessions); }
    const TMarketSessions& Sessions() const { return FSessions; }

    // Who trades against orders; nil, as from the start, for nobody but the quotes of the items.
    // Not owned.
    void SetOrderMarket(TOrderMarket* market) { FOrderMarket = market; }
    TOrderMarket* OrderMarket() const { return FOrderMarket; }
    // That market tells so when everybody has seen its quotes and it is about to move them: orders
    // that wait may take from them. One receiver, an empty event for none.
    void SetQuotesSeenEvent(const TEvent<void()>& event) { FQuotesSeen = event; }
    void TellQuotesSeen() const {
        if (FQuotesSeen) FQuotesSeen();
    }

    // A table that can be fetched; see TEmbeddedSpreadTable::Load for what is refused.
    bool AddSpreadTable(StringView code, std::span<const TSpreadBand> bands);
    bool HasSpreadTable(StringView code) const;
    // The bands of a table that can be fetched, loaded or not; none for an unknown code.
    std::span<const TSpreadBand> SpreadBands(StringView code) const;
    // On: a table is loaded inside the call that asks for it. Off, as from the start: it is handed
    // out unloaded, and comes with the next delivery.
    void SetSpreadTablesAtOnce(bool atOnce) { FSpreadTablesAtOnce = atOnce; }

    // Tells the listeners of what changed since the last call: exchanges, favourites, tick tables.
    void Deliver();
    Integer RegistrationCount() const;

private:
    struct TSpreadEntry {
        std::vector<TSpreadBand> Bands;
        TEmbeddedSpreadTable Table;
        const String* Code = nullptr;
        bool IsAwaited = false;
    };

    void Made(TEmbeddedSubItem& item) override;
    void BindItems();
    void Bind(TEmbeddedSubItem& item, const TEmbeddedMarketData& record);
    bool DropFavorite(StringView symbol);
    void Fetch(TSpreadEntry& entry);
    void DeliverSpreadTables(TDeliverySerial serial);

    TEmbeddedSubscribeAdapter& FItems;
    TMarketUniverse FUniverse;
    TMarketSessions FSessions;
    TOrderMarket* FOrderMarket = nullptr;
    TEvent<void()> FQuotesSeen;
    TList<String> FFavorites;
    TDictionary<String, bool> FIsFavorite;
    std::deque<TSpreadEntry> FSpreadStore;
    std::deque<String> FSpreadCodes;
    TDictionary<String, TSpreadEntry*> FSpreads; // nil: asked for and not there yet
    TSpreadEntry* FLastSpread = nullptr;         // of the last look-up
    TList<TSpreadEntry*> FArriving;
    TDeliveryClock FDeliveries;
    TRegistrations<TDataCallbackEvent> FExchangeListeners{FDeliveries};
    TRegistrations<TDataCallbackEvent> FFavoriteListeners{FDeliveries};
    TRegistrations<TDataCallbackEvent> FSpreadListeners{FDeliveries};
    bool FIsReady = true;
    bool FSpreadTablesAtOnce = false;
    bool FExchangesChanged = false;
    bool FFavoritesChanged = false;
};

} // namespace quorin
