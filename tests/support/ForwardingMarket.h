#pragma once

#include "viewdata/services/MarketAdapter.h"

namespace quorin {

// Hands everything on to another market adapter; what a descendant overrides, it does its own way.
class TForwardingMarket : public TCustomMarketAdapter {
public:
    explicit TForwardingMarket(TCustomMarketAdapter& inner) : Inner(inner) {}

    void AddExchangeListener(const TDataCallbackEvent& event, TObject* owner) override {
        Inner.AddExchangeListener(event, owner);
    }
    void RemoveExchangeListener(TObject* owner) override { Inner.RemoveExchangeListener(owner); }
    void AddFavoriteListener(const TDataCallbackEvent& event, TObject* owner) override {
        Inner.AddFavoriteListener(event, owner);
    }
    void RemoveFavoriteListener(TObject* owner) override { Inner.RemoveFavoriteListener(owner); }
    void AddSpreadListener(const TDataCallbackEvent& event, TObject* owner) override {
        Inner.AddSpreadListener(event, owner);
    }
    void RemoveSpreadListener(TObject* owner) override { Inner.RemoveSpreadListener(owner); }
    Integer GetMarketStatus(StringView code) const override { return Inner.GetMarketStatus(code); }
    Integer GetExchangeCount() const override { return Inner.GetExchangeCount(); }
    const String& GetExchangeCode(Integer index) const override {
        return Inner.GetExchangeCode(index);
    }
    Integer GetFavoriteCount() const override { return Inner.GetFavoriteCount(); }
    const String& GetFavoriteSymbol(Integer index) const override {
        return Inner.GetFavoriteSymbol(index);
    }
    Boolean AddFavorite(StringView symbol) override { return Inner.AddFavorite(symbol); }
    Boolean RemoveFavorite(StringView symbol) override { return Inner.RemoveFavorite(symbol); }
    void RemoveFavorites(std::span<const String> symbols, Integer high) override {
        Inner.RemoveFavorites(symbols, high);
    }
    String GetSymbolName(StringView symbol, TAppLanguage language) const override {
        return Inner.GetSymbolName(symbol, language);
    }
    Boolean IsMarketDataReady() const override { return Inner.IsMarketDataReady(); }
    TCustomSeriesData* FindSeries(StringView code) const override { return Inner.FindSeries(code); }
    TCustomCategoryData* FindCategory(Integer id) const override { return Inner.FindCategory(id); }
    TCustomMarketData* FindMarketData(StringView symbol) const override {
        return Inner.FindMarketData(symbol);
    }
    TCustomSpreadTable* FindSpreadTable(StringView code) override {
        return Inner.FindSpreadTable(code);
    }
    TCustomMarketData* GetFavoriteMarketData(Integer index) const override {
        return Inner.GetFavoriteMarketData(index);
    }
    Boolean IsFavorite(StringView symbol) const override { return Inner.IsFavorite(symbol); }
    Integer GetSeriesCount(StringView exchange) const override {
        return Inner.GetSeriesCount(exchange);
    }
    const String& GetSeriesCode(StringView exchange, Integer index) const override {
        return Inner.GetSeriesCode(exchange, index);
    }
    Integer GetMarketDataCount(StringView exchange, StringView series) const override {
        return Inner.GetMarketDataCount(exchange, series);
    }
    TCustomMarketData* GetMarketDataAt(StringView exchange, StringView series,
                                       Integer index) const override {
        return Inner.GetMarketDataAt(exchange, series, index);
    }

protected:
    TCustomMarketAdapter& Inner;
};

} // namespace quorin
