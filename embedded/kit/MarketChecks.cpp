#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

#include <algorithm>
#include <array>

namespace quorin {

namespace {

constexpr StringView UnknownCode = u"no such code";
constexpr Integer UnknownCategory = -987654;
constexpr Integer MostRecordsPerSeries = 50; // a walk through a large universe ends somewhere

class TMarketChecks {
public:
    TMarketChecks(TMarketDriver& driver, TContractReport& report)
        : FDriver(driver), FService(driver.Service()), FCheck(report, u"MarketAdapter") {}

    void CheckAll() {
        UnknownCodes();
        IndexesOutsideLists();
        Walk();
        Switches();
        Favorites();
        BulkRemoval();
        ExchangeRegistrations();
        FavoriteRegistrations();
        SpreadRegistrations();
    }

private:
    void UnknownCodes() {
        for (const StringView code : {UnknownCode, StringView()}) {
            const String where = ShowValue(code);
            const StringView nil = u"a Find operation gives nil for an unknown code";
            FCheck.IsNil(nil, FService.FindSeries(code), where);
            FCheck.IsNil(nil, FService.FindMarketData(code), where);
            const TCustomSpreadTable* table = FService.FindSpreadTable(code);
            FCheck.False(u"an unknown tick table is nil or not loaded",
                         table != nullptr && table->GetStatus() == SpreadTableLoaded, where);
            FCheck.Reads(u"GetSymbolName of an unknown symbol is empty", {},
                         FService.GetSymbolName(code, TAppLanguage::None), where);
            FCheck.False(u"an unknown exchange is not open",
                         FService.GetMarketStatus(code) == MarketOpen, where);
            FCheck.Equal(u"an unknown exchange has no series", 0, FService.GetSeriesCount(code),
                         where);
            FCheck.Reads(u"an unknown exchange has no series", {}, FService.GetSeriesCode(code, 0),
                         where);
            FCheck.False(u"an unknown symbol is no favourite", FService.IsFavorite(code), where);
            FCheck.IsNil(u"GetMarketDataAt gives nil for what is not there",
                         FService.GetMarketDataAt(code, code, 0), where);
        }
        FCheck.Equal(u"an unknown exchange or series has no records", 0,
                     FService.GetMarketDataCount(UnknownCode, {}));
        if (FService.GetExchangeCount() > 0) {
            FCheck.Equal(u"an unknown exchange or series has no records", 0,
                         FService.GetMarketDataCount(FService.GetExchangeCode(0), UnknownCode));
        }
        FCheck.IsNil(u"FindCategory gives nil for an unknown number",
                     FService.FindCategory(UnknownCategory));
    }

    void IndexesOutsideLists() {
        for (const Integer index : IndexesOutside(FService.GetExchangeCount())) {
            FCheck.Reads(u"an index outside the exchanges gives empty text", {},
                         FService.GetExchangeCode(index), ShowValue(index));
        }
        for (const Integer index : IndexesOutside(FService.GetFavoriteCount())) {
            FCheck.Reads(u"an index outside the favourites gives empty text and nil", {},
                         FService.GetFavoriteSymbol(index), ShowValue(index));
            FCheck.IsNil(u"an index outside the favourites gives empty text and nil",
                         FService.GetFavoriteMarketData(index), ShowValue(index));
        }
    }

    void Walk() {
        const Integer exchanges = FService.GetExchangeCount();
        for (Integer index = 0; index < exchanges; ++index) {
            const String exchange = FService.GetExchangeCode(index);
            const Integer count = FService.GetSeriesCount(exchange);
            for (const Integer outside : IndexesOutside(count)) {
                FCheck.Reads(u"an index outside the series gives empty text", {},
                             FService.GetSeriesCode(exchange, outside), ShowValue(outside));
            }
            for (Integer series = 0; series < count; ++series) {
                WalkSeries(exchange, FService.GetSeriesCode(exchange, series));
            }
        }
        FCheck.True(u"the universe has a symbol to look at", !FSymbol.empty());
    }

    void WalkSeries(const String& exchange, const String& series) {
        if (series.empty()) return; // legal
        TCustomSeriesData* record = FService.FindSeries(series);
        FCheck.IsThere(u"FindSeries knows the listed series", record, series);
        FCheck.IsSame(u"a known code gives the same record", record, FService.FindSeries(series),
                      series);
        if (record != nullptr) {
            const Integer category = record->GetCategoryID();
            FCheck.IsSame(u"a known code gives the same record", FService.FindCategory(category),
                          FService.FindCategory(category), ShowValue(category));
        }
        const Integer count = FService.GetMarketDataCount(exchange, series);
        for (const Integer outside : IndexesOutside(count)) {
            FCheck.IsNil(u"GetMarketDataAt gives nil for what is not there",
                         FService.GetMarketDataAt(exchange, series, outside), ShowValue(outside));
        }
        for (Integer index = 0; index < std::min(count, MostRecordsPerSeries); ++index) {
            TCustomMarketData* data = FService.GetMarketDataAt(exchange, series, index);
            if (data == nullptr) continue; // legal
            const String& symbol = data->GetSymbol();
            FCheck.IsSame(u"FindMarketData gives the listed record", data,
                          FService.FindMarketData(symbol), symbol);
            FCheck.Reads(u"a record names its exchange and series", exchange, data->GetExchange(),
                         symbol);
            FCheck.Reads(u"a record names its exchange and series", series, data->GetSeries(),
                         symbol);
            FSymbol = symbol;
            FExchange = exchange;
        }
    }

    void Switches() {
        for (const bool isOn : {false, true}) {
            FDriver.SetMarketDataReady(isOn);
            FDriver.Deliver();
            FCheck.Equal(u"IsMarketDataReady tells whether the universe is loaded", isOn,
                         FService.IsMarketDataReady());
            if (FExchange.empty()) continue;
            FDriver.SetMarketOpen(FExchange, isOn);
            FDriver.Deliver();
            FCheck.Equal(u"GetMarketStatus tells whether the market is open", isOn,
                         FService.GetMarketStatus(FExchange) == MarketOpen);
        }
    }

    void Favorites() {
        const StringView adds = u"AddFavorite is true once for a symbol, false for the empty code";
        const Integer before = FService.GetFavoriteCount();
        FCheck.False(adds, FService.AddFavorite({}), u"the empty code");
        for (const String& symbol : {FDriver.UnlistedSymbol(), FSymbol}) {
            if (symbol.empty()) continue;
            FService.RemoveFavorite(symbol);
            const Integer count = FService.GetFavoriteCount();
            FCheck.True(adds, FService.AddFavorite(symbol), u"the first time");
            FCheck.False(adds, FService.AddFavorite(symbol), u"the second time");
            FCheck.Equal(u"a new favourite is counted and known", count + 1,
                         FService.GetFavoriteCount());
            FCheck.True(u"a new favourite is counted and known", FService.IsFavorite(symbol));
            const Integer index = IndexOfFavorite(symbol);
            FCheck.True(u"a favourite is in the list", index >= 0, symbol);
            FCheck.IsSame(u"a favourite's record is that of its symbol, nil if not loaded",
                          FService.FindMarketData(symbol), FService.GetFavoriteMarketData(index),
                          symbol);
            const StringView removes = u"RemoveFavorite is true once for a favourite";
            FCheck.True(removes, FService.RemoveFavorite(symbol), u"the first time");
            FCheck.False(removes, FService.RemoveFavorite(symbol), u"the second time");
            FCheck.False(u"a removed favourite is not known", FService.IsFavorite(symbol));
        }
        FCheck.True(u"favourites come and go in pairs", FService.GetFavoriteCount() <= before);
        FDriver.Deliver();
    }

    void BulkRemoval() {
        const std::array<String, 2> symbols = {FDriver.UnlistedSymbol(), FSymbol};
        for (const String& symbol : symbols) FService.AddFavorite(symbol);
        FDriver.Deliver();
        const Integer count = FService.GetFavoriteCount();
        TCallRecorder& recorder = FCheck.NewRecorder();
        FService.AddFavoriteListener(recorder.Event(), recorder.Owner());
        FService.RemoveFavorites(symbols, -1);
        FCheck.Equal(u"RemoveFavorites up to -1 removes none", count, FService.GetFavoriteCount());
        FService.RemoveFavorites(symbols, 0);
        FCheck.False(u"RemoveFavorites removes the entries up to High", //
                     FService.IsFavorite(symbols[0]), u"entry 0");
        FCheck.True(u"RemoveFavorites removes the entries up to High", //
                    FService.IsFavorite(symbols[1]), u"entry 1, behind High");
        FDriver.Deliver();
        recorder.Reset();
        FService.AddFavorite(symbols[0]);
        FDriver.Deliver();
        recorder.Reset();
        FService.RemoveFavorites(symbols, 1);
        FCheck.Equal(u"RemoveFavorites calls nobody inside", 0, recorder.Count());
        FDriver.Deliver();
        FCheck.Equal(u"RemoveFavorites of many is told of once", 1, recorder.Count());
        FService.RemoveFavoriteListener(recorder.Owner());
    }

    void ExchangeRegistrations() {
        if (FExchange.empty()) return;
        bool isOpen = true;
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddExchangeListener",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddExchangeListener(receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveExchangeListener(owner); },
             .Change =
                 [&] {
                     isOpen = !isOpen;
                     FDriver.SetMarketOpen(FExchange, isOpen);
                 },
             .Inspect = InspectNil});
    }

    void FavoriteRegistrations() {
        const String symbol = FDriver.UnlistedSymbol();
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddFavoriteListener",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddFavoriteListener(receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveFavoriteListener(owner); },
             .Change =
                 [&] {
                     if (!FService.RemoveFavorite(symbol)) FService.AddFavorite(symbol);
                 },
             .Inspect = InspectNil});
        FService.RemoveFavorite(symbol);
        FDriver.Deliver();
    }

    void SpreadRegistrations() {
        static constexpr TTickBand bands[] = {{0.0, 10.0, 0.01}};
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddSpreadListener",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddSpreadListener(receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveSpreadListener(owner); },
             .Change = [&] { FService.FindSpreadTable(FDriver.NewSpreadTable(bands)); },
             .Inspect = [&](Pointer sender) { return InspectTables(sender); }});
    }

    String InspectTables(Pointer sender) {
        if (sender == nullptr) return u"nil where the tick tables should be";
        const auto& tables = *static_cast<const TSpreadDictionary*>(sender);
        if (tables.IsEmpty()) return u"no table";
        for (const auto& item : tables) {
            if (item.Value == nullptr) return u"a nil table under " + ShowValue(item.Key);
            if (item.Value->GetStatus() != SpreadTableLoaded) return item.Key + u" is not loaded";
            if (FService.FindSpreadTable(item.Key) != item.Value) {
                return item.Key + u" is another table than FindSpreadTable gives";
            }
        }
        return {};
    }
    Integer IndexOfFavorite(StringView symbol) const {
        for (Integer index = 0; index < FService.GetFavoriteCount(); ++index) {
            if (FService.GetFavoriteSymbol(index) == symbol) return index;
        }
        return -1;
    }

    TMarketDriver& FDriver;
    TCustomMarketAdapter& FService;
    TChecker FCheck;
    String FSymbol; // of the walk
    String FExchange;
};

} // namespace

void CheckMarketAdapter(TMarketDriver& driver, TContractReport& report) {
    TMarketChecks(driver, report).CheckAll();
}

} // namespace quorin
