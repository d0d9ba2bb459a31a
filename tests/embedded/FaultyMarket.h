#pragma once

#include "embedded/MarketService.h"
#include "tests/support/ForwardingMarket.h"

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

// A market adapter that has one fault.
class TFaultyMarket : public TForwardingMarket {
public:
    TFaultyMarket(TCustomMarketAdapter& real, TMarketFault fault)
        : TForwardingMarket(real), FFault(fault) {}

    Integer GetMarketStatus(StringView Exchange) const override {
        return Is(TMarketFault::AlwaysOpen) ? MarketOpen : Inner.GetMarketStatus(Exchange);
    }
    const String& GetExchangeCode(Integer Index) const override {
        const bool isOutside = Index < 0 || Index >= GetExchangeCount();
        return Inner.GetExchangeCode(isOutside && Is(TMarketFault::AnswersOutside) ? 0 : Index);
    }
    Boolean AddFavorite(StringView Symbol) override {
        return Inner.AddFavorite(Symbol) || (Is(TMarketFault::AddsTwice) && !Symbol.empty());
    }
    void RemoveFavorites(std::span<const String> Symbols, Integer High) override {
        const auto last = static_cast<Integer>(Symbols.size()) - 1;
        Inner.RemoveFavorites(Symbols, Is(TMarketFault::RemovesAllFavorites) ? last : High);
    }
    TCustomMarketData* FindMarketData(StringView Symbol) const override {
        TCustomMarketData* known = Inner.FindMarketData(Symbol);
        if (known != nullptr || !Is(TMarketFault::KnowsAll)) return known;
        const String& exchange = Inner.GetExchangeCode(0);
        return Inner.GetMarketDataAt(exchange, Inner.GetSeriesCode(exchange, 0), 0);
    }
    TCustomSpreadTable* FindSpreadTable(StringView SpreadCode) override {
        TCustomSpreadTable* real = Inner.FindSpreadTable(SpreadCode);
        const bool isFaulty = Is(TMarketFault::BorderStep) || Is(TMarketFault::SwapsBounds) ||
                              Is(TMarketFault::MovesOnce);
        if (real == nullptr || !isFaulty) return real;
        for (TFaultySpreadTable& table : FTables) {
            if (&table.Real() == real) return &table;
        }
        return &FTables.emplace_back(*real, FFault);
    }

private:
    bool Is(TMarketFault fault) const { return FFault == fault; }

    const TMarketFault FFault;
    std::deque<TFaultySpreadTable> FTables;
};

} // namespace quorin
