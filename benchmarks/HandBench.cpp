#include "benchmarks/HandChain.h"
#include "benchmarks/WindowChanges.h"

#include <set>
#include <utility>

// The same changes and the same window over the chain written by hand, whose order and whose
// filter are kept in trees of the standard library.

namespace quorin {
namespace {

constexpr Integer Key = MarketAttribute::LastPrice;

Double SumOfRow(ByHand::TSource& source, Integer row) {
    Double sum = 0.0;
    for (Integer column = 0; column < WindowColumns; ++column) {
        sum += source
                   .GetValue(TcxCustomDataSource::HandleOfIndex(row),
                             TcxCustomDataSource::HandleOfIndex(column))
                   .ToDouble();
    }
    return sum;
}

Integer RowOf(Integer row) {
    return row;
}
Integer RowOf(const std::pair<Double, Integer>& placed) {
    return placed.second;
}

// `take(row, before, now)` keeps `order` while the rows change.
template <class Order, class Take>
void FollowOrder(benchmark::State& state, Order& order, Take take) {
    const auto rows = static_cast<Integer>(state.range(0));
    TChanges changes(rows);
    THandChain& chain = THandChain::OfSize(rows);
    for (Integer row = 0; row < rows; ++row) {
        const Double price = changes.NextPrice();
        take(row, std::exchange(chain.Field(row, Key), price), price);
    }
    for (auto _ : state) {
        changes.MakeBatch([&](Integer row, Double price) {
            take(row, std::exchange(chain.Field(row, Key), price), price);
        });
        Double sum = 0.0;
        auto place = order.begin();
        for (Integer row = 0; row < WindowRows && place != order.end(); ++row, ++place) {
            sum += SumOfRow(chain.Source(), RowOf(*place));
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations());
}

void HandWindow(benchmark::State& state) {
    std::vector<Integer> order;
    for (Integer row = 0; row < WindowRows; ++row) order.push_back(row);
    FollowOrder(state, order, [](Integer, Double, Double) {});
}

void HandSortedWindow(benchmark::State& state) {
    std::set<std::pair<Double, Integer>> order;
    FollowOrder(state, order, [&order](Integer row, Double before, Double now) {
        order.erase({before, row});
        order.emplace(now, row);
    });
}

void HandFilteredWindow(benchmark::State& state) {
    std::set<Integer> order;
    FollowOrder(state, order, [&order](Integer row, Double, Double now) {
        if (now > MiddlePrice) {
            order.insert(row);
        } else {
            order.erase(row);
        }
    });
}

QUORIN_GROWTH(HandWindow);
QUORIN_GROWTH(HandSortedWindow);
QUORIN_GROWTH(HandFilteredWindow);

} // namespace
} // namespace quorin
