#include "embedded/UniverseFile.h"

#include "embedded/CsvReader.h"
#include "embedded/DataError.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>
#include <fstream>

namespace quorin {

namespace {

// A file of named columns, read row by row. Texts of a row live until the next one.
class TTableFile {
public:
    TTableFile(const std::filesystem::path& path, std::initializer_list<std::string_view> required)
        : FName(path.string()), FStream(path, std::ios::binary), FReader(FStream) {
        if (!FStream) throw EDataError(FName, 0, "the file cannot be opened");
        if (!FReader.Next()) throw EDataError(FName, 1, "the file has no header");
        CheckRecord();
        for (const std::string_view name : FReader.Fields()) FColumns.emplace_back(name);
        for (const std::string_view name : required) {
            if (std::find(FColumns.begin(), FColumns.end(), name) == FColumns.end()) {
                Fail("the column \"" + std::string(name) + "\" is missing");
            }
        }
    }

    // Goes to the next row; empty lines do not count.
    bool Next() {
        while (FReader.Next()) {
            CheckRecord();
            const auto fields = FReader.Fields();
            if (fields.size() == 1 && fields[0].empty()) continue;
            if (fields.size() != FColumns.size()) Fail("wrong number of fields");
            FTexts.resize(fields.size());
            for (std::size_t index = 0; index < fields.size(); ++index) {
                FTexts[index] = FromUtf8(fields[index]);
            }
            return true;
        }
        return false;
    }

    // Empty for a column that the file does not have.
    StringView Text(std::string_view column) const {
        const auto found = std::find(FColumns.begin(), FColumns.end(), column);
        if (found == FColumns.end()) return {};
        return FTexts[static_cast<std::size_t>(found - FColumns.begin())];
    }
    Double Number(std::string_view column) const {
        Double value = 0.0;
        const StringView text = Text(column);
        if (!text.empty() && !TryParseDouble(text, value)) FailAt(column, "is no number");
        return value;
    }
    Integer Whole(std::string_view column, Integer fallback = 0) const {
        Integer value = fallback;
        const StringView text = Text(column);
        if (!text.empty() && !TryParseInteger(text, value)) FailAt(column, "is no whole number");
        return value;
    }
    TNameTexts Names() const { return {Text("name"), Text("name-zh-Hant"), Text("name-zh-Hans")}; }

    [[noreturn]] void Fail(std::string_view what) const {
        throw EDataError(FName, FReader.Line(), what);
    }

private:
    void CheckRecord() const {
        if (!FReader.Problem().empty()) Fail(FReader.Problem());
    }
    [[noreturn]] void FailAt(std::string_view column, std::string_view what) const {
        Fail("\"" + ToUtf8(Text(column)) + "\" in column \"" + std::string(column) + "\" " +
             std::string(what));
    }

    std::string FName;
    std::ifstream FStream;
    TCsvReader FReader;
    std::vector<std::string> FColumns;
    std::vector<String> FTexts;
};

void LoadExchanges(TTableFile file, TEmbeddedMarketAdapter& market) {
    while (file.Next()) {
        TExchangeRecord record;
        record.Code = file.Text("code");
        record.Currency = file.Text("currency");
        record.MarketState = file.Text("state");
        record.MarketStatus = file.Whole("status");
        if (!market.AddExchange(record)) file.Fail("the exchange is empty or there already");
    }
}

void LoadCategories(TTableFile file, TEmbeddedMarketAdapter& market) {
    while (file.Next()) {
        const TCategoryRecord record{file.Whole("id"), file.Names()};
        if (!market.AddCategory(record)) file.Fail("the category is there already");
    }
}

void LoadSeries(TTableFile file, TEmbeddedMarketAdapter& market) {
    while (file.Next()) {
        TSeriesRecord record;
        record.Code = file.Text("code");
        record.Exchange = file.Text("exchange");
        record.CategoryID = file.Whole("category");
        record.Names = file.Names();
        if (market.FindCategory(record.CategoryID) == nullptr) file.Fail("no such category");
        if (!market.AddSeries(record)) {
            file.Fail("the series is empty or there already, or its exchange is not");
        }
    }
}

void LoadSpreadTables(TTableFile file, TEmbeddedMarketAdapter& market) {
    String code;
    std::vector<TSpreadBand> bands;
    const auto add = [&] {
        if (bands.empty()) return;
        if (!market.AddSpreadTable(code, bands)) {
            file.Fail("the tick table \"" + ToUtf8(code) +
                      "\" that ends here has gaps or bad steps, or is there already");
        }
        bands.clear();
    };
    while (file.Next()) {
        if (file.Text("code") != code) {
            add();
            code = file.Text("code");
        }
        bands.push_back({file.Number("from"), file.Number("to"), file.Number("step")});
    }
    add();
}

void LoadSymbols(TTableFile file, TEmbeddedMarketAdapter& market) {
    while (file.Next()) {
        TSymbolRecord record;
        record.Symbol = file.Text("code");
        record.Exchange = file.Text("exchange");
        record.Series = file.Text("series");
        record.Names = file.Names();
        record.ProductType = file.Whole("type", StockProductType);
        record.Currency = file.Text("currency");
        record.SpreadCode = file.Text("tick-table");
        record.Underlyer = file.Text("underlyer");
        record.ExpiryMonth = file.Text("expiry");
        record.StrikePrice = file.Text("strike");
        record.CallPut = file.Text("call-put");
        record.LastTradingDay = file.Text("last-trading-day");
        record.SettlementDay = file.Text("settlement-day");
        record.TickSize = file.Text("tick-size");
        record.DisplayRatio = file.Text("display-ratio");
        record.FractionalQuantity = file.Text("fractional");
        record.LotSize = file.Number("lot");
        record.ContractSize = file.Number("contract-size");
        record.PreviousClose = file.Number("previous-close");
        if (market.AddSymbol(record) == nullptr) {
            file.Fail("the symbol is empty or there already, or its exchange or series is not");
        }
    }
}

void LoadFavorites(TTableFile file, TEmbeddedMarketAdapter& market) {
    while (file.Next()) {
        if (!market.AddFavorite(file.Text("code"))) {
            file.Fail("the favourite is empty or there already");
        }
    }
}

} // namespace

void LoadUniverse(const std::filesystem::path& folder, TEmbeddedMarketAdapter& market) {
    LoadExchanges({folder / "exchanges.csv", {"code"}}, market);
    LoadCategories({folder / "categories.csv", {"id", "name"}}, market);
    LoadSeries({folder / "series.csv", {"code", "exchange", "category", "name"}}, market);
    LoadSpreadTables({folder / "tick-tables.csv", {"code", "from", "to", "step"}}, market);
    LoadSymbols({folder / "symbols.csv", {"code", "name", "exchange", "series"}}, market);
    const std::filesystem::path derivatives = folder / "derivatives.csv";
    if (std::filesystem::exists(derivatives)) {
        LoadSymbols({derivatives, {"code", "name", "exchange", "series"}}, market);
    }
    const std::filesystem::path favorites = folder / "favorites.csv";
    if (std::filesystem::exists(favorites)) LoadFavorites({favorites, {"code"}}, market);
}

} // namespace quorin
