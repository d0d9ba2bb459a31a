#pragma once

#include "viewdata/services/MarketAdapter.h"

namespace quorin {

// A market adapter around another one whose listed universe has holes and doubles, as a feed that
// is not done yet may show it: each exchange lists an empty series code and a series without a
// record besides its own, and each series begins with a nil and names its last record twice.
class THollowMarket : public TCustomMarketAdapter {
public:
    explicit THollowMarket(TCustomMarketAdapter& inner) : Inner(inner) {}

    Integer GetSeriesCount(StringView exchange) const override {
        return Inner.GetSeriesCount(exchange) + Holes;
    }
    const String& GetSeriesCode(StringView exchange, Integer index) const override {
        static const String codes[Holes] = {u"", u"NORECORD"};
        return index < Holes ? codes[index] : Inner.GetSeriesCode(exchange, index - Holes);
    }
    Integer GetMarketDataCount(StringView exchange, StringView series) const override {
        return Inner.GetMarketDataCount(exchange, series) + 2;
    }
    TCustomMarketData* GetMarketDataAt(StringView exchange, StringView series,
                                       Integer index) const override {
        const Integer last = Inner.GetMarketDataCount(exchange, series) - 1;
        return Inner.GetMarketDataAt(exchange, series, index > last + 1 ? last : index - 1);
    }

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

private:
    static constexpr Integer Holes = 2;
    TCustomMarketAdapter& Inner;
};

} // namespace quorin
