#include "benchmarks/BenchMarket.h"

#include "platform/widgets/GridTableView.h"
#include "viewdata/position/PositionAttributes.h"
#include "viewdata/position/PositionDataControl.h"

#include <memory>
#include <vector>

// What a position list of one account costs while the market moves and positions change; flat in
// the number of rows, and a row that goes costs little more than taking it out of a list.

namespace quorin {
namespace {

constexpr Integer ChangingPositions = 10;
constexpr Int64 MostPositions = 100'000;
constexpr Int64 MostListed = 10'000; // where rows are taken out
constexpr Integer RemovedAtOnce = 50;
constexpr StringView BenchAccount = u"ACCOUNT1";

// So many positions in a list that a grid shows. Every update names one of ten symbols from all
// over the list.
class TPositionScreen {
public:
    explicit TPositionScreen(Integer positions)
        : FSource(TComponentClass::Of<TCustomPositionDataControl>()) {
        for (Integer index = 0; index < positions; ++index) {
            FRecords.push_back(&FServices.Positions().FeedPosition(BenchAccount, SymbolAt(index),
                                                                   {.Quantity = 100.0}));
        }
        FServices.Deliver();
        FView.SetCustomDataSource(&FSource);
        for (const Integer tag : {PositionAttribute::SymbolCode, PositionAttribute::NetQuantity}) {
            FView.AddColumn(tag);
        }
        Control().SetAccount(BenchAccount);
        Control().SetConvertCurrency(u"USD");
        const std::size_t step = FRecords.size() / ChangingPositions;
        for (std::size_t index = 0; index < ChangingPositions; ++index) {
            FChanges.push_back(std::make_unique<TChange>(*FRecords[index * step]));
        }
        FView.TakeRepaint();
    }
    ~TPositionScreen() { FView.SetCustomDataSource(nullptr); }

    // What the service tells of one position.
    struct TChange {
        explicit TChange(TEmbeddedPositionData& record) : Record(record) {
            Positions.Add(record.GetSymbol(), &record);
            Sender.Add(BenchAccount, &Positions);
        }
        TEmbeddedPositionData& Record;
        TPositionDictionary Positions;
        TAccountPositionDictionary Sender;
    };

    TCustomPositionDataControl& Control() {
        return *static_cast<TCustomPositionDataControl*>(FSource.DataControl());
    }
    TcxGridTableView& View() { return FView; }
    TChange& NextChange() { return *FChanges[FNext++ % FChanges.size()]; }

private:
    TBenchServices FServices;
    TCustomGridDataSource FSource;
    TcxGridTableView FView;
    std::vector<TEmbeddedPositionData*> FRecords;
    std::vector<std::unique_ptr<TChange>> FChanges;
    std::size_t FNext = 0;
};

template <class Tell>
void UpdateScreen(benchmark::State& state, Tell tell) {
    TPositionScreen screen(static_cast<Integer>(state.range(0)));
    for (auto _ : state) {
        tell(screen);
        if (!screen.View().TakeRepaint()) state.SkipWithError("nothing to paint");
    }
    state.SetItemsProcessed(state.iterations());
}

void PositionPriceChange(benchmark::State& state) {
    UpdateScreen(state, [](TPositionScreen& screen) {
        screen.Control().PositionMarketDataUpdate(&screen.NextChange().Sender, nullptr);
    });
}

void PositionRatioChange(benchmark::State& state) {
    TCurrencyRatioDictionary ratios;
    ratios.Add(u"CNY", 1.1);
    UpdateScreen(state, [&ratios](TPositionScreen& screen) {
        screen.Control().CurrencyRatioUpdate(&ratios, nullptr);
    });
}

void PositionUpdateOfOne(benchmark::State& state) {
    UpdateScreen(state, [](TPositionScreen& screen) {
        screen.Control().PositionUpdate(&screen.NextChange().Sender, nullptr);
    });
}

enum class TPlace : Byte { First, Middle, Last };

// The place of the next row to go, in a list of so many.
std::size_t PlaceIn(TPlace place, std::size_t count) {
    switch (place) {
    case TPlace::First: return 0;
    case TPlace::Middle: return count / 2;
    default: return count - 1;
    }
}

// Rows go one by one from the same place; between two rounds they come back at the end.
void RemoveRows(benchmark::State& state, TPlace place) {
    const auto rows = static_cast<Integer>(state.range(0));
    TPositionScreen screen(rows);
    TCustomPositionDataControl& control = screen.Control();
    std::vector<String> order;
    for (Integer row = 0; row < control.GetCount(); ++row) {
        order.push_back(control.GetValue(row, PositionAttribute::SymbolCode).ToText());
    }
    const auto* positions = TCustomPositionAdapter::GetInstance();
    std::vector<std::unique_ptr<TPositionScreen::TChange>> going;
    bool allGone = true;
    for (auto _ : state) {
        state.PauseTiming();
        going.clear();
        for (Integer count = 0; count < RemovedAtOnce; ++count) {
            const auto at =
                order.begin() + static_cast<std::ptrdiff_t>(PlaceIn(place, order.size()));
            auto& record =
                static_cast<TEmbeddedPositionData&>(*positions->GetPosition(BenchAccount, *at));
            order.erase(at);
            going.push_back(std::make_unique<TPositionScreen::TChange>(record));
        }
        for (const auto& change : going) change->Record.SetFigures({});
        state.ResumeTiming();
        for (const auto& change : going) control.PositionUpdate(&change->Sender, nullptr);
        state.PauseTiming();
        allGone = allGone && control.GetCount() == rows - RemovedAtOnce;
        for (const auto& change : going) {
            change->Record.SetFigures({.Quantity = 100.0});
            control.PositionUpdate(&change->Sender, nullptr);
            order.push_back(change->Record.GetSymbol());
        }
        state.ResumeTiming();
    }
    if (!allGone) state.SkipWithError("not removed");
    state.SetItemsProcessed(state.iterations() * RemovedAtOnce);
}

void EraseByHand(benchmark::State& state, TPlace place) {
    std::vector<String> rows;
    for (Integer index = 0; index < state.range(0); ++index) rows.push_back(SymbolAt(index));
    for (auto _ : state) {
        for (Integer count = 0; count < RemovedAtOnce; ++count) {
            rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(PlaceIn(place, rows.size())));
            benchmark::ClobberMemory();
        }
        state.PauseTiming();
        for (Integer count = 0; count < RemovedAtOnce; ++count) rows.push_back(SymbolAt(count));
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * RemovedAtOnce);
}

template <TPlace Place>
void RemoveRowsAt(benchmark::State& state) {
    RemoveRows(state, Place);
}
template <TPlace Place>
void EraseAt(benchmark::State& state) {
    EraseByHand(state, Place);
}
constexpr auto RemoveFirstRow = RemoveRowsAt<TPlace::First>;
constexpr auto RemoveMiddleRow = RemoveRowsAt<TPlace::Middle>;
constexpr auto RemoveLastRow = RemoveRowsAt<TPlace::Last>;
constexpr auto EraseFirst = EraseAt<TPlace::First>;
constexpr auto EraseMiddle = EraseAt<TPlace::Middle>;

QUORIN_GROWTH(PositionPriceChange, MostPositions);
QUORIN_GROWTH(PositionRatioChange, MostPositions);
QUORIN_GROWTH(PositionUpdateOfOne, MostPositions);
QUORIN_GROWTH(RemoveFirstRow, MostListed);
QUORIN_GROWTH(EraseFirst, MostListed);
QUORIN_GROWTH(RemoveMiddleRow, MostListed);
QUORIN_GROWTH(EraseMiddle, MostListed);
QUORIN_GROWTH(RemoveLastRow, MostListed);

} // namespace
} // namespace quorin
