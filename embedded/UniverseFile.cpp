#include "embedded/UniverseFile.h"

#include "embedded/DataFile.h"
#include "embedded/DataTable.h"
#include "embedded/UniverseChecks.h"
#include "platform/rtl/Utf.h"

namespace quorin {

namespace {

struct TNameColumns {
    explicit TNameColumns(const TDataTable& file)
        : Name(file.Column("name")), Language1(file.Column("name-zh-Hant")),
          Language2(file.Column("name-zh-Hans")) {}
    TNameTexts Of(const TDataTable& file) const {
        return {file.Text(Name), file.Text(Language1), file.Text(Language2)};
    }
    TDataTable::TColumn Name, Language1, Language2;
};

bool IsYes(const TDataTable& file, TDataTable::TColumn column) {
    const Integer value = file.Whole(column, 0);
    if (value != 0 && value != 1) file.Fail(column, "is neither 0 nor 1");
    return value == 1;
}

void ReadExchanges(TDataTable file, TMarketUniverse& universe) {
    const auto code = file.Column("code");
    const auto currency = file.Column("currency");
    const auto state = file.Column("state");
    const auto status = file.Column("status");
    const auto sided = file.Column("sided");
    while (file.Next()) {
        TExchangeRecord record;
        record.Code = file.Code(code);
        record.Currency = file.Text(currency);
        record.MarketState = file.Text(state);
        record.MarketStatus = file.Whole(status, 0);
        record.IsSided = IsYes(file, sided);
        if (!universe.AddExchange(record)) file.Fail(code, "is there already");
    }
}

void ReadCategories(TDataTable file, TMarketUniverse& universe) {
    const auto id = file.Column("id");
    const TNameColumns names(file);
    while (file.Next()) {
        const TCategoryRecord record{file.Whole(id), names.Of(file)};
        if (!universe.AddCategory(record)) file.Fail(id, "is there already");
    }
}

void ReadSeries(TDataTable file, TMarketUniverse& universe) {
    const auto code = file.Column("code");
    const auto exchange = file.Column("exchange");
    const auto category = file.Column("category");
    const TNameColumns names(file);
    while (file.Next()) {
        TSeriesRecord record;
        record.Code = file.Code(code);
        record.Exchange = file.Code(exchange);
        record.CategoryID = file.Whole(category);
        record.Names = names.Of(file);
        if (universe.FindExchange(record.Exchange) == nullptr) {
            file.Fail(exchange, "is no exchange");
        }
        if (universe.FindCategory(record.CategoryID) == nullptr) {
            file.Fail(category, "is no category");
        }
        if (!universe.AddSeries(record)) file.Fail(code, "is there already");
    }
}

// Bands of one table follow each other, lowest first.
void ReadTickTables(TDataTable file, TReadTickTables& tables) {
    const auto code = file.Column("code");
    const auto from = file.Column("from");
    const auto to = file.Column("to");
    const auto step = file.Column("step");
    TReadTickTables::TTable* current = nullptr;
    while (file.Next()) {
        const StringView name = file.Code(code);
        const TSpreadBand band{file.Number(from), file.Number(to), file.NumberAboveZero(step)};
        if (file.Text(step).empty()) file.Fail("a band without a step");
        if (!(band.From < band.To)) file.Fail("the band ends before it begins");
        if (current == nullptr || current->Code != name) {
            if (tables.Find(name) != nullptr) file.Fail(code, "is there already");
            current = &tables.Add(name);
        } else if (band.From > current->Bands.back().To) {
            file.Fail("a gap between the band above and this one");
        } else if (band.From < current->Bands.back().To) {
            file.Fail("the band overlaps the one above");
        }
        current->Bands.push_back(band);
        if (!TEmbeddedSpreadTable().Load(current->Bands)) file.Fail("steps beyond 9 decimals");
    }
}

struct TSymbolColumns {
    explicit TSymbolColumns(const TDataTable& file)
        : Code(file.Column("code")), Exchange(file.Column("exchange")),
          Series(file.Column("series")), Names(file), Type(file.Column("type")),
          Currency(file.Column("currency")), TickTable(file.Column("tick-table")),
          Underlyer(file.Column("underlyer")), Expiry(file.Column("expiry")),
          Strike(file.Column("strike")), CallPut(file.Column("call-put")),
          LastTradingDay(file.Column("last-trading-day")),
          SettlementDay(file.Column("settlement-day")), TickSize(file.Column("tick-size")),
          DisplayRatio(file.Column("display-ratio")), Fractional(file.Column("fractional")),
          Lot(file.Column("lot")), ContractSize(file.Column("contract-size")),
          PreviousClose(file.Column("previous-close")) {}

    TDataTable::TColumn Code, Exchange, Series;
    TNameColumns Names;
    TDataTable::TColumn Type, Currency, TickTable, Underlyer, Expiry, Strike, CallPut,
        LastTradingDay, SettlementDay, TickSize, DisplayRatio, Fractional, Lot, ContractSize,
        PreviousClose;
};

void ReadSymbols(TDataTable file, TMarketUniverse& universe, const TReadTickTables& tables,
                 TAwaitedUnderlyers& underlyers) {
    const TSymbolColumns columns(file);
    while (file.Next()) {
        TSymbolRecord record;
        record.Symbol = file.Code(columns.Code);
        record.Exchange = file.Code(columns.Exchange);
        record.Series = file.Code(columns.Series);
        record.Names = columns.Names.Of(file);
        record.ProductType = file.Whole(columns.Type, StockProductType);
        record.Currency = file.Text(columns.Currency);
        record.SpreadCode = file.Text(columns.TickTable);
        record.Underlyer = file.Text(columns.Underlyer);
        record.ExpiryMonth = file.Text(columns.Expiry);
        record.StrikePrice = NumericText(file, columns.Strike);
        record.CallPut = CallPutText(file, columns.CallPut);
        record.LastTradingDay = file.Text(columns.LastTradingDay);
        record.SettlementDay = file.Text(columns.SettlementDay);
        file.NumberAboveZero(columns.TickSize);
        record.TickSize = file.Text(columns.TickSize);
        file.NumberAboveZero(columns.DisplayRatio);
        record.DisplayRatio = file.Text(columns.DisplayRatio);
        record.FractionalQuantity = NumericText(file, columns.Fractional);
        record.LotSize = file.NumberFromZero(columns.Lot);
        record.ContractSize = file.NumberFromZero(columns.ContractSize);
        record.PreviousClose = file.Number(columns.PreviousClose);
        if (!record.SpreadCode.empty() && !tables.IsKnown(record.SpreadCode)) {
            file.Fail(columns.TickTable, "is no tick table");
        }
        AddChecked(file, {columns.Code, columns.Exchange, columns.Series}, record, universe);
        underlyers.Await(file, record.Underlyer);
    }
}

void ReadSessions(const std::filesystem::path& path, const TMarketUniverse& universe,
                  TMarketSessions& sessions) {
    sessions = LoadSessions(path);
    for (const auto& entry : sessions.ByExchange()) {
        if (universe.FindExchange(entry.Key) == nullptr) {
            throw EDataError(path.string(), 0, "\"" + ToUtf8(entry.Key) + "\" is no exchange");
        }
    }
}

TList<String> ReadFavorites(TDataTable file, const TEmbeddedMarketAdapter& market) {
    const auto code = file.Column("code");
    TList<String> favorites;
    TDictionary<String, bool> known;
    while (file.Next()) {
        const StringView symbol = file.Code(code);
        if (market.IsFavorite(symbol) || !known.Add(symbol, true)) {
            file.Fail(code, "is there already");
        }
        favorites.Add(String(symbol));
    }
    return favorites;
}

} // namespace

void LoadUniverse(const std::filesystem::path& folder, TEmbeddedMarketAdapter& market) {
    const auto has = [&](const char* name) { return IsThere(folder / name); };
    TReadTickTables tables(market);
    TMarketSessions sessions;
    TList<String> favorites;
    market.AddAll([&](TMarketUniverse& universe) {
        const auto symbols = {std::string_view("code"), std::string_view("name"),
                              std::string_view("exchange"), std::string_view("series")};
        ReadExchanges({folder / "exchanges.csv", {"code"}}, universe);
        ReadCategories({folder / "categories.csv", {"id", "name"}}, universe);
        ReadSeries({folder / "series.csv", {"code", "exchange", "category", "name"}}, universe);
        ReadTickTables({folder / "tick-tables.csv", {"code", "from", "to", "step"}}, tables);
        TAwaitedUnderlyers underlyers;
        ReadSymbols({folder / "symbols.csv", symbols}, universe, tables, underlyers);
        if (has("derivatives.csv")) {
            ReadSymbols({folder / "derivatives.csv", symbols}, universe, tables, underlyers);
        }
        underlyers.Check(universe);
        if (has("sessions.csv")) ReadSessions(folder / "sessions.csv", universe, sessions);
        if (has("favorites.csv"))
            favorites = ReadFavorites({folder / "favorites.csv", {"code"}}, market);
    });
    tables.AddTo(market);
    if (!sessions.IsEmpty()) market.SetSessions(std::move(sessions));
    for (const String& favorite : favorites) market.AddFavorite(favorite);
}

} // namespace quorin
