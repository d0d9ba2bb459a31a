#pragma once

#include "embedded/MarketService.h"

#include <deque>
#include <utility>

namespace quorin {

enum class TMarketFault {
    None,
    KnowsAll,
    AddsTwice,
    AnswersOutside,
    RemovesAllFavorites,
    AlwaysOpen,
    // of the tick tables
    BorderStep,
    SwapsBounds,
    MovesOnce,
};

class TFaultySpreadTable : public TCustomSpreadTable {
    QUORIN_CLASS(TFaultySpreadTable, TCustomSpreadTable)
public:
    TFaultySpreadTable(TCustomSpreadTable& real, TMarketFault fault) : FReal(real), FFault(fault) {}
    Integer GetStatus() const override { return FReal.GetStatus(); }
    Double MovePrice(Double Price, Integer Steps) const override {
        if (FFault == TMarketFault::MovesOnce && Steps != 0) Steps = Steps > 0 ? 1 : -1;
        if (FFault == TMarketFault::BorderStep && Steps == -1) {
            Double upper = 0.0;
            Double lower = 0.0;
            return Price - FReal.GetSpreadUp(Price, upper, lower);
        }
        return FReal.MovePrice(Price, Steps);
    }
    Double GetSpreadUp(Double Price, Double& Upper, Double& Lower) const override {
        const bool isSwapped = FFault == TMarketFault::SwapsBounds;
        return FReal.GetSpreadUp(Price, isSwapped ? Lower : Upper, isSwapped ? Upper : Lower);
    }
    Double GetSpreadDown(Double Price, Double& Upper, Double& Lower) const override {
        return FReal.GetSpreadDown(Price, Upper, Lower);
    }
    const TCustomSpreadTable& Real() const { return FReal; }

private:
    TCustomSpreadTable& FReal;
    const TMarketFault FFault;
};

// Hands everything on to an embedded service, but for one fault.
class TFaultyMarket : public TCustomMarketAdapter {
public:
    TFaultyMarket(TCustomMarketAdapter& real, TMarketFault fault) : FReal(real), FFault(fault) {}

    using TEvent = TDataCallbackEvent;
    void AddExchangeListener(const TEvent& Event, TObject* Owner) override {
        FReal.AddExchangeListener(Event, Owner);
    }
    void RemoveExchangeListener(TObject* Owner) override { FReal.RemoveExchangeListener(Owner); }
    void AddFavoriteListener(const TEvent& Event, TObject* Owner) override {
        FReal.AddFavoriteListener(Event, Owner);
    }
    void RemoveFavoriteListener(TObject* Owner) override { FReal.RemoveFavoriteListener(Owner); }
    void AddSpreadListener(const TEvent& Event, TObject* Owner) override {
        FReal.AddSpreadListener(Event, Owner);
    }
    void RemoveSpreadListener(TObject* Owner) override { FReal.RemoveSpreadListener(Owner); }
    Integer GetMarketStatus(StringView Exchange) const override {
        return Is(TMarketFault::AlwaysOpen) ? MarketOpen : FReal.GetMarketStatus(Exchange);
    }
    Integer GetExchangeCount() const override { return FReal.GetExchangeCount(); }
    const String& GetExchangeCode(Integer Index) const override {
        const bool isOutside = Index < 0 || Index >= GetExchangeCount();
        return FReal.GetExchangeCode(isOutside && Is(TMarketFault::AnswersOutside) ? 0 : Index);
    }
    Integer GetSeriesCount(StringView Exchange) const override {
        return FReal.GetSeriesCount(Exchange);
    }
    const String& GetSeriesCode(StringView Exchange, Integer Index) const override {
        return FReal.GetSeriesCode(Exchange, Index);
    }
    Integer GetFavoriteCount() const override { return FReal.GetFavoriteCount(); }
    const String& GetFavoriteSymbol(Integer Index) const override {
        return FReal.GetFavoriteSymbol(Index);
    }
    Boolean AddFavorite(StringView Symbol) override {
        return FReal.AddFavorite(Symbol) || (Is(TMarketFault::AddsTwice) && !Symbol.empty());
    }
    Boolean RemoveFavorite(StringView Symbol) override { return FReal.RemoveFavorite(Symbol); }
    void RemoveFavorites(std::span<const String> Symbols, Integer High) override {
        const auto last = static_cast<Integer>(Symbols.size()) - 1;
        FReal.RemoveFavorites(Symbols, Is(TMarketFault::RemovesAllFavorites) ? last : High);
    }
    String GetSymbolName(StringView Symbol, TAppLanguage Language) const override {
        return FReal.GetSymbolName(Symbol, Language);
    }
    Boolean IsMarketDataReady() const override { return FReal.IsMarketDataReady(); }
    Integer GetMarketDataCount(StringView Exchange, StringView Series) const override {
        return FReal.GetMarketDataCount(Exchange, Series);
    }
    TCustomMarketData* GetMarketDataAt(StringView Exchange, StringView Series,
                                       Integer Index) const override {
        return FReal.GetMarketDataAt(Exchange, Series, Index);
    }
    TCustomSeriesData* FindSeries(StringView Code) const override { return FReal.FindSeries(Code); }
    TCustomCategoryData* FindCategory(Integer CategoryID) const override {
        return FReal.FindCategory(CategoryID);
    }
    TCustomMarketData* FindMarketData(StringView Symbol) const override {
        TCustomMarketData* known = FReal.FindMarketData(Symbol);
        if (known != nullptr || !Is(TMarketFault::KnowsAll)) return known;
        const String& exchange = FReal.GetExchangeCode(0);
        return FReal.GetMarketDataAt(exchange, FReal.GetSeriesCode(exchange, 0), 0);
    }
    TCustomSpreadTable* FindSpreadTable(StringView SpreadCode) override {
        TCustomSpreadTable* real = FReal.FindSpreadTable(SpreadCode);
        const bool isFaulty = Is(TMarketFault::BorderStep) || Is(TMarketFault::SwapsBounds) ||
                              Is(TMarketFault::MovesOnce);
        if (real == nullptr || !isFaulty) return real;
        for (TFaultySpreadTable& table : FTables) {
            if (&table.Real() == real) return &table;
        }
        return &FTables.emplace_back(*real, FFault);
    }
    TCustomMarketData* GetFavoriteMarketData(Integer Index) const override {
        return FReal.GetFavoriteMarketData(Index);
    }
    Boolean IsFavorite(StringView Symbol) const override { return FReal.IsFavorite(Symbol); }

private:
    bool Is(TMarketFault fault) const { return FFault == fault; }

    TCustomMarketAdapter& FReal;
    const TMarketFault FFault;
    std::deque<TFaultySpreadTable> FTables;
};

} // namespace quorin
