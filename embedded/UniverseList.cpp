#include "embedded/DataError.h"
#include "embedded/DataTable.h"
#include "embedded/UniverseChecks.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"

namespace quorin {

namespace {

constexpr StringView OpenState = u"CT";
constexpr StringView TickTablePrefix = u"TICK ";
constexpr StringView SpreadTablePrefix = u"SPREAD ";
constexpr Int64 RowsPerReport = 4096;
constexpr Double BandTicks = 1e7; // of a band; prices beyond it keep the step

struct TListColumns {
    explicit TListColumns(const TDataTable& file)
        : Symbol(file.Column("symbol")), Name(file.Column("name")),
          Exchange(file.Column("exchange")), Series(file.Column("series")),
          Category(file.Column("category")), Type(file.Column("product_type")),
          Currency(file.Column("currency")), Lot(file.Column("lot")), Tick(file.Column("tick")),
          Expiry(file.Column("expiry")), Strike(file.Column("strike")),
          CallPut(file.Column("call_put")), Underlyer(file.Column("underlyer")),
          ContractSize(file.Column("contract_size")) {}

    TDataTable::TColumn Symbol, Name, Exchange, Series, Category, Type, Currency, Lot, Tick, Expiry,
        Strike, CallPut, Underlyer, ContractSize;
};

class TListReader {
public:
    TListReader(const std::filesystem::path& path, const TEmbeddedMarketAdapter& market)
        : FFile(path,
                {"symbol", "name", "exchange", "series", "category", "product_type", "currency",
                 "lot", "tick", "expiry", "strike", "call_put", "underlyer", "contract_size"}),
          FColumns(FFile), FTables(market) {}

    void Read(TMarketUniverse& universe, const TLoadProgress& progress) {
        for (Int64 row = 1; FFile.Next(); ++row) {
            ReadRow(universe);
            if (row % RowsPerReport != 0 || !progress || progress(FFile.PartRead())) continue;
            throw EDataError(FFile.File(), 0, "loading was cancelled");
        }
        if (!FHasRows) throw EDataError(FFile.File(), 0, "the file lists no symbol");
    }
    const TReadTickTables& Tables() const { return FTables; }

private:
    void ReadRow(TMarketUniverse& universe) {
        FHasRows = true;
        TSymbolRecord record;
        record.Symbol = FFile.Code(FColumns.Symbol);
        record.Exchange = FFile.Code(FColumns.Exchange);
        record.Series = FFile.Code(FColumns.Series);
        record.Names.Name = FFile.Text(FColumns.Name);
        record.ProductType = Type();
        record.Currency = FFile.Text(FColumns.Currency);
        record.Underlyer = FFile.Text(FColumns.Underlyer);
        record.ExpiryMonth = FFile.Text(FColumns.Expiry);
        record.StrikePrice = NumericText(FFile, FColumns.Strike);
        record.CallPut = CallPutText(FFile, FColumns.CallPut);
        record.LotSize = FFile.NumberFromZero(FColumns.Lot);
        record.ContractSize = FFile.NumberFromZero(FColumns.ContractSize);
        record.TickSize = FFile.Text(FColumns.Tick);
        record.SpreadCode = TickTable(record.Symbol);
        MakeSeries(record, universe);
        AddChecked(FFile, {FColumns.Symbol, FColumns.Exchange, FColumns.Series}, record, universe);
    }

    Integer Type() const {
        const Integer type = FFile.Whole(FColumns.Type, StockProductType);
        return type == ProductType::Futures || type == ProductType::Options ? type
                                                                            : StockProductType;
    }

    void MakeSeries(const TSymbolRecord& record, TMarketUniverse& universe) {
        const Integer category = FFile.Whole(FColumns.Category);
        const TMarketExchange* exchange = universe.FindExchange(record.Exchange);
        if (exchange == nullptr) {
            universe.AddExchange({record.Exchange, record.Currency, OpenState, MarketOpen});
            exchange = universe.FindExchange(record.Exchange);
        }
        if (universe.FindCategory(category) == nullptr) {
            const String name = IntegerToText(category);
            universe.AddCategory({category, {name}});
        }
        const TEmbeddedSeriesData* series = universe.FindSeries(record.Series);
        if (series != nullptr && series->GetCategoryID() != category) {
            FFile.Fail(FColumns.Category, "is not the category that the series had before");
        }
        if (universe.FindSeries(*exchange, record.Series) == nullptr) {
            universe.AddSeries({record.Series, record.Exchange, category, {record.Series}});
        }
    }

    // The code of the table for the row's tick; good until the next row.
    StringView TickTable(StringView symbol) {
        if (FFile.Text(FColumns.Tick).empty()) return {};
        const bool isSpread = symbol.find(u'/') != symbol.npos;
        const Double tick = FFile.NumberAboveZero(FColumns.Tick);
        FTableCode = isSpread ? SpreadTablePrefix : TickTablePrefix;
        AppendDouble(FTableCode, tick);
        if (FTables.IsKnown(FTableCode)) return FTableCode;
        const Double end = tick * BandTicks;
        const TSpreadBand band{isSpread ? -end : 0.0, end, tick};
        if (!TEmbeddedSpreadTable().Load({&band, 1})) {
            FFile.Fail(FColumns.Tick, "has more than 9 decimals");
        }
        FTables.Add(FTableCode).Bands.push_back(band);
        return FTableCode;
    }

    TDataTable FFile;
    TListColumns FColumns;
    TReadTickTables FTables;
    String FTableCode;
    bool FHasRows = false;
};

} // namespace

void LoadUniverseList(const std::filesystem::path& path, TEmbeddedMarketAdapter& market,
                      const TLoadProgress& progress) {
    TListReader reader(path, market);
    market.AddAll([&](TMarketUniverse& universe) { reader.Read(universe, progress); });
    reader.Tables().AddTo(market);
}

} // namespace quorin
