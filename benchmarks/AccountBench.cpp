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

void PlainSums(benchmark::State& state) {
    TGroup group(static_cast<Integer>(state.range(0)), Currencies);
    const TCustomAccount& master = *group.Accounts().GetAccount(MasterCode, false);
    TAccountDictionary listed;
    group.Accounts().GetSubAccountList(MasterCode, listed);
    std::vector<TCustomAccount*> subAccounts;
    for (const auto& item : listed) subAccounts.push_back(item.Value);
    String text;
    Integer cells = 0;
    const auto add = [&](const String& currency, auto figure) {
        benchmark::DoNotOptimize(SumByHand(master, subAccounts, currency, figure));
        ++cells;
    };
    const auto field = [&](Integer number) {
        return [&text, number](const TCustomAccountData& record) {
            record.GetFieldString(number, text);
            return ToDoubleOr(text, 0.0);
        };
    };
    for (auto _ : state) {
        cells = 0;
        for (Integer index = 0; index < Currencies; ++index) {
            const String currency = CurrencyAt(index);
            for (const TOperation& operation : Operations) {
                add(currency, [&operation](const TCustomAccountData& record) {
                    const Double plus = (record.*operation.Plus)();
                    return operation.Minus ? plus - (record.*operation.Minus)() : plus;
                });
            }
            for (Integer number = 0; number < FieldCount; ++number) {
                add(currency, field(FirstField + number));
            }
            for (Integer number = 0; number < CustomCount; ++number) {
                add(currency, field(FirstCustomField + number));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * cells);
}

QUORIN_GROWTH(AggregatedCells, MostSubAccounts);
QUORIN_GROWTH(PlainSums, MostSubAccounts);

} // namespace
} // namespace quorin
