#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/MarketRecords.h"
#include "viewdata/services/ServiceRegistry.h"
#include "viewdata/services/SpreadTable.h"

#include <span>

namespace quorin {

// Answer of TCustomMarketAdapter::GetMarketStatus while the exchange trades.
inline constexpr Integer MarketOpen = 1;

// The static universe: exchanges, their series and symbols, the user's favourites, tick tables.
class TCustomMarketAdapter : public TService<TCustomMarketAdapter> {
public:
    // Operations, in order

    // Data of an exchange changed or arrived. `Sender`: nil.
    virtual void AddExchangeListener(const TDataCallbackEvent& Event, TObject* Owner) = 0;
    virtual void RemoveExchangeListener(TObject* Owner) = 0;
    // The number of favourites changed. `Sender`: nil.
    virtual void AddFavoriteListener(const TDataCallbackEvent& Event, TObject* Owner) = 0;
    virtual void RemoveFavoriteListener(TObject* Owner) = 0;
    // Tick tables arrived. `Sender`: TSpreadDictionary of these.
    virtual void AddSpreadListener(const TDataCallbackEvent& Event, TObject* Owner) = 0;
    virtual void RemoveSpreadListener(TObject* Owner) = 0;

    // MarketOpen, or anything else for a closed or unknown exchange.
    virtual Integer GetMarketStatus(StringView Exchange) const = 0;
    virtual Integer GetExchangeCount() const = 0;
    virtual const String& GetExchangeCode(Integer Index) const = 0;
    virtual Integer GetSeriesCount(StringView Exchange) const = 0;
    // May be empty also for an index inside.
    virtual const String& GetSeriesCode(StringView Exchange, Integer Index) const = 0;

    virtual Integer GetFavoriteCount() const = 0;
    // May be empty also for an index inside.
    virtual const String& GetFavoriteSymbol(Integer Index) const = 0;
    // False for the empty code and for what is a favourite already.
    virtual Boolean AddFavorite(StringView Symbol) = 0;
    // False when it was none.
    virtual Boolean RemoveFavorite(StringView Symbol) = 0;
    // Removes the entries 0 to `High` of `Symbols` and tells of it once; `High` -1 removes none.
    virtual void RemoveFavorites(std::span<const String> Symbols, Integer High) = 0;

    // The name to show; empty for an unknown symbol. TAppLanguage::None: in the language in force.
    virtual String GetSymbolName(StringView Symbol, TAppLanguage Language) const = 0;
    // The universe has been loaded.
    virtual Boolean IsMarketDataReady() const = 0;
    // Records of one series; 0 for an unknown one. An empty series may stand for all of the
    // exchange.
    virtual Integer GetMarketDataCount(StringView Exchange, StringView Series) const = 0;
    // May be nil also for an index inside.
    virtual TCustomMarketData* GetMarketDataAt(StringView Exchange, StringView Series,
                                               Integer Index) const = 0;
    virtual TCustomSeriesData* FindSeries(StringView Code) const = 0;
    virtual TCustomCategoryData* FindCategory(Integer CategoryID) const = 0;
    virtual TCustomMarketData* FindMarketData(StringView Symbol) const = 0;
    // Asking for a table that is not there yet, nil or not loaded, makes the adapter fetch it; the
    // spread listeners hear when it has come.
    virtual TCustomSpreadTable* FindSpreadTable(StringView SpreadCode) = 0;
    // Nil also for a favourite whose record has not been loaded.
    virtual TCustomMarketData* GetFavoriteMarketData(Integer Index) const = 0;
    virtual Boolean IsFavorite(StringView Symbol) const = 0;
};

} // namespace quorin
