#include "benchmarks/BenchMarket.h"

#include "platform/widgets/GridTableView.h"
#include "viewdata/market/MarketAttributes.h"

#include <benchmark/benchmark.h>

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

// What a raw numeric cell costs on its way from the grid to the live item, against the same chain
// of virtual calls with one hash look-up, written by hand.

namespace quorin {
namespace {

namespace A = MarketAttribute;

constexpr std::array<Integer, 11> NumericColumns{
    A::BestBid,   A::BestAsk,         A::LastPrice,   A::BestBidQuantity,
    A::Volume,    A::BestAskQuantity, A::StrikePrice, A::PreviousClose,
    A::HighPrice, A::LowPrice,        A::OpenPrice};

Integer TagOfColumn(Integer column) {
    return NumericColumns[static_cast<std::size_t>(column) % NumericColumns.size()];
}

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

void CountCells(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * WindowRows * WindowColumns);
}

void LibraryCells(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::OfSize(static_cast<Integer>(state.range(0)), true);
    TCustomGridDataSource source(TComponentClass::Of<TCustomMarketDataControl>());
    TcxGridTableView view;
    view.SetCustomDataSource(&source);
    for (Integer column = 0; column < WindowColumns; ++column) view.AddColumn(TagOfColumn(column));
    static_cast<TCustomMarketDataControl*>(source.DataControl())
        ->SetExchangeAndCategory(BenchExchange, 1);
    const std::vector<Integer> records = WindowRecords(universe.Size());
    for (auto _ : state) benchmark::DoNotOptimize(SumOfWindow(source, records));
    CountCells(state);
}

namespace ByHand {

struct TItem {
    virtual ~TItem() = default;
    virtual Double Number(Integer field) const { return Fields[static_cast<std::size_t>(field)]; }
    std::array<Double, 256> Fields{};
};

struct TTextHash {
    using is_transparent = void;
    std::size_t operator()(StringView text) const { return std::hash<StringView>()(text); }
};

struct TFeed {
    virtual ~TFeed() = default;
    virtual TItem* Find(StringView key) {
        const auto found = Items.find(key);
        return found == Items.end() ? nullptr : found->second.get();
    }
    std::unordered_map<String, std::unique_ptr<TItem>, TTextHash, std::equal_to<>> Items;
};

struct TControl {
    explicit TControl(TFeed& feed) : Feed(feed) {}
    virtual ~TControl() = default;
    virtual Variant GetValue(Integer record, Integer attribute) {
        if (record < 0 || record >= static_cast<Integer>(Rows.size())) return Variant(u"");
        const TItem* item = Feed.Find(Rows[static_cast<std::size_t>(record)]);
        return item != nullptr ? Variant(item->Number(attribute)) : Variant(u"");
    }
    TFeed& Feed;
    std::vector<String> Rows;
};

struct TSource {
    explicit TSource(TControl& control) : Control(control) {}
    virtual ~TSource() = default;
    virtual Variant GetValue(Pointer record, Pointer item) {
        const auto column = static_cast<std::size_t>(TcxCustomDataSource::IndexOfHandle(item));
        if (column >= Tags.size()) return Variant(u"");
        return Control.GetValue(TcxCustomDataSource::IndexOfHandle(record), Tags[column]);
    }
    TControl& Control;
    std::vector<Integer> Tags;
};

} // namespace ByHand

void HandWrittenCells(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    ByHand::TFeed feed;
    ByHand::TControl control(feed);
    ByHand::TSource source(control);
    for (Integer index = 0; index < size; ++index) {
        const String symbol = SymbolAt(index);
        auto item = std::make_unique<ByHand::TItem>();
        for (const Integer field : NumericColumns) {
            item->Fields[static_cast<std::size_t>(field)] = 100.0 + field;
        }
        control.Rows.push_back(symbol);
        feed.Items.emplace(symbol, std::move(item));
    }
    for (Integer column = 0; column < WindowColumns; ++column) {
        source.Tags.push_back(TagOfColumn(column));
    }
    const std::vector<Integer> records = WindowRecords(size);
    for (auto _ : state) benchmark::DoNotOptimize(SumOfWindow(source, records));
    CountCells(state);
}

BENCHMARK(LibraryCells)->Arg(SmallUniverse)->Arg(LargeUniverse);
BENCHMARK(HandWrittenCells)->Arg(SmallUniverse)->Arg(LargeUniverse);

} // namespace
} // namespace quorin
