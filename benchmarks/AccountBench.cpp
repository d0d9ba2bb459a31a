#include "benchmarks/AccountGroup.h"

// What a repaint of the account tree costs when every value is a sum over the sub-accounts, against
// the same sums over the same records, which both sides ask the accounts for by currency.

namespace quorin {
namespace {

constexpr Integer Currencies = 12;
constexpr Int64 MostSubAccounts = 1'000;

// From the tree list to the text of every value cell, the frame's own rows of attributes apart.
void AggregatedCells(benchmark::State& state) {
    TGroup group(static_cast<Integer>(state.range(0)), Currencies);
    TTreeScreen screen(group);
    screen.Control().SetAccount(MasterCode);
    screen.Control().SetAggregate();
    screen.Show();
    TcxVirtualTreeList& list = *screen.List;
    Integer cells = 0;
    for (auto _ : state) {
        screen.Source.DataChanged();
        cells = 0;
        for (Integer row = 0; row < list.RowCount(); ++row) {
            if (list.Row(row).Depth == 0) continue;
            benchmark::DoNotOptimize(list.CellText(row, screen.Value));
            ++cells;
        }
    }
    if (cells != AttributeCount * Currencies) state.SkipWithError("cells are missing");
    state.SetItemsProcessed(state.iterations() * cells);
}

// One cell: the master's own figure and those of the sub-accounts.
template <class Figure>
Double SumByHand(const TCustomAccount& master, const std::vector<TCustomAccount*>& subAccounts,
                 const String& currency, Figure figure) {
    Double sum = figure(*master.GetAccountData(currency));
    for (const TCustomAccount* account : subAccounts) {
        const TCustomAccountData* record = account->GetAccountData(currency);
        if (record != nullptr) sum += figure(*record);
    }
    return sum;
}

// Calls `each` with a reader of every figure, in the order of the tree's rows.
template <class Each>
void EachFigure(String& text, Each each) {
    for (const TOperation& operation : Operations) {
        each([&operation](const TCustomAccountData& record) {
            const Double plus = (record.*operation.Plus)();
            return operation.Minus ? plus - (record.*operation.Minus)() : plus;
        });
    }
    const auto eachField = [&](Integer first, Integer count) {
        for (Integer number = first; number < first + count; ++number) {
            each([&text, number](const TCustomAccountData& record) {
                record.GetFieldString(number, text);
                return ToDoubleOr(text, 0.0);
            });
        }
    };
    eachField(FirstField, FieldCount);
    eachField(FirstCustomField, CustomCount);
}

struct TPlainGroup {
    explicit TPlainGroup(benchmark::State& state)
        : Group(static_cast<Integer>(state.range(0)), Currencies),
          Master(*Group.Accounts().GetAccount(MasterCode, false)) {
        TAccountDictionary listed;
        Group.Accounts().GetSubAccountList(MasterCode, listed);
        for (const auto& item : listed) SubAccounts.push_back(item.Value);
    }
    template <class Figure>
    void Add(Integer currency, Figure figure) {
        benchmark::DoNotOptimize(SumByHand(Master, SubAccounts, CurrencyAt(currency), figure));
    }

    TGroup Group;
    const TCustomAccount& Master;
    std::vector<TCustomAccount*> SubAccounts;
    String Text;
};

// A currency's records are read for all figures before those of the next: they are still in the
// cache.
void PlainSums(benchmark::State& state) {
    TPlainGroup group(state);
    for (auto _ : state) {
        for (Integer currency = 0; currency < Currencies; ++currency) {
            EachFigure(group.Text, [&](auto figure) { group.Add(currency, figure); });
        }
    }
    state.SetItemsProcessed(state.iterations() * AttributeCount * Currencies);
}

// As the tree has its rows.
void PlainSumsByRow(benchmark::State& state) {
    TPlainGroup group(state);
    for (auto _ : state) {
        EachFigure(group.Text, [&](auto figure) {
            for (Integer currency = 0; currency < Currencies; ++currency) {
                group.Add(currency, figure);
            }
        });
    }
    state.SetItemsProcessed(state.iterations() * AttributeCount * Currencies);
}

QUORIN_GROWTH(AggregatedCells, MostSubAccounts);
QUORIN_GROWTH(PlainSums, MostSubAccounts);
QUORIN_GROWTH(PlainSumsByRow, MostSubAccounts);

} // namespace
} // namespace quorin
