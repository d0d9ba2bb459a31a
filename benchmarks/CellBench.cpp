#include "benchmarks/HandChain.h"

#include "platform/widgets/GridTableView.h"

#include <charconv>

// What a cell costs on its way from the grid to the live item, raw and as the text on the screen.

namespace quorin {
namespace {

// The whole window, cell by cell, as a grid paints it.
template <class Source>
Double SumOfWindow(Source& source, const std::vector<Integer>& records) {
    Double sum = 0.0;
    for (const Integer record : records) {
        for (Integer column = 0; column < WindowColumns; ++column) {
            sum += source
                       .GetValue(TcxCustomDataSource::HandleOfIndex(record),
                                 TcxCustomDataSource::HandleOfIndex(column))
                       .ToDouble();
        }
    }
    return sum;
}

std::vector<Integer> WindowRecords(Integer universe) {
    std::vector<Integer> records;
    for (Integer row = 0; row < WindowRows; ++row) records.push_back(RowOfWindow(row, universe));
    return records;
}

// A grid over a watch on the whole exchange.
struct TCellScreen {
    explicit TCellScreen(TBenchUniverse& universe) : Records(WindowRecords(universe.Size())) {
        View.SetCustomDataSource(&Source);
        for (Integer column = 0; column < WindowColumns; ++column) {
            View.AddColumn(TagOfColumn(column));
        }
        Control().SetExchangeAndCategory(BenchExchange, 1);
    }
    ~TCellScreen() { View.SetCustomDataSource(nullptr); }
    TCellScreen(const TCellScreen&) = delete;
    TCellScreen& operator=(const TCellScreen&) = delete;

    TCustomMarketDataControl& Control() {
        return static_cast<TCustomMarketDataControl&>(*Source.DataControl());
    }
    TCustomGridDataSource Source{TComponentClass::Of<TCustomMarketDataControl>()};
    TcxGridTableView View;
    std::vector<Integer> Records;
};

void LibraryCells(benchmark::State& state) {
    TCellScreen screen(TBenchUniverse::Of(state));
    SumOfWindow(screen.Source, screen.Records);
    TAllocationMeter meter(state);
    for (auto _ : state) benchmark::DoNotOptimize(SumOfWindow(screen.Source, screen.Records));
    const Int64 cells = state.iterations() * WindowRows * WindowColumns;
    state.SetItemsProcessed(cells);
    meter.Tell(cells);
}

void HandWrittenCells(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    THandChain& chain = THandChain::OfSize(size);
    const std::vector<Integer> records = WindowRecords(size);
    for (auto _ : state) benchmark::DoNotOptimize(SumOfWindow(chain.Source(), records));
    state.SetItemsProcessed(state.iterations() * WindowRows * WindowColumns);
}

constexpr Double TextPrice(Integer row) {
    return 12'345.25 + 10.5 * row;
}
constexpr int TextDecimals = 3;
constexpr StringView TextTicks = u"BENCHPRICES";

// The last price of each row on the screen as its text, with the decimals of its tick table.
void LibraryPriceTexts(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    TCellScreen screen(universe);
    static constexpr TSpreadBand bands[] = {{0.0, 10'000.0, 0.001}, {10'000.0, 1e6, 0.005}};
    universe.Services().Market().AddSpreadTable(TextTicks, bands);
    universe.Services().Market().SetSpreadTablesAtOnce(true);
    for (Integer row = 0; row < WindowRows; ++row) {
        const Integer record = screen.Records[static_cast<std::size_t>(row)];
        TEmbeddedSubItem& item = universe.Services().Items().Item(SymbolAt(record));
        item.SetField(Field::SpreadCode, TextTicks);
        item.SetField(Field::LastPrice, TextPrice(row));
    }
    TCustomMarketDataControl& control = screen.Control();
    TAllocationMeter meter(state);
    for (auto _ : state) {
        for (const Integer record : screen.Records) {
            const String text = control.GetDisplayValue(record, MarketAttribute::LastPrice);
            benchmark::DoNotOptimize(text.data());
        }
    }
    if (control.GetDisplayValue(0, MarketAttribute::LastPrice) != u"12345.250") {
        state.SkipWithError("wrong text");
    }
    meter.Tell(state.iterations() * WindowRows);
    state.SetItemsProcessed(state.iterations() * WindowRows);
}

String GroupedByHand(Double number) {
    constexpr std::ptrdiff_t GroupLength = 3;
    std::array<char, 64> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                          std::chars_format::fixed, TextDecimals)
                                .ptr;
    const char* const point = end - TextDecimals - 1;
    String text;
    for (const char* digit = digits.data(); digit != end; ++digit) {
        if (digit != digits.data() && digit < point && (point - digit) % GroupLength == 0) {
            text += u',';
        }
        text += static_cast<Char>(*digit);
    }
    return text;
}

// The same prices from a vector, as directly as it goes.
void ToCharsPriceTexts(benchmark::State& state) {
    std::vector<Double> prices;
    for (Integer row = 0; row < WindowRows; ++row) prices.push_back(TextPrice(row));
    for (auto _ : state) {
        for (const Double price : prices) {
            benchmark::DoNotOptimize(price);
            const String text = GroupedByHand(price);
            benchmark::DoNotOptimize(text.data());
        }
    }
    if (GroupedByHand(prices.front()) != u"12,345.250") state.SkipWithError("wrong text");
    state.SetItemsProcessed(state.iterations() * WindowRows);
}

QUORIN_GROWTH(LibraryCells);
QUORIN_GROWTH(HandWrittenCells);
QUORIN_GROWTH(LibraryPriceTexts);
QUORIN_GROWTH(ToCharsPriceTexts);

} // namespace
} // namespace quorin
