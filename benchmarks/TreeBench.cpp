#include "benchmarks/AccountGroup.h"

#include <array>
#include <charconv>

// An account tree of many nodes, of which 50 rows are on the screen: a repaint after an account
// update, and what a node takes.

namespace quorin {
namespace {

constexpr Int64 MostNodes = 100'000;

// A row per attribute and below it one per currency.
Integer CurrenciesFor(const benchmark::State& state) {
    return static_cast<Integer>(state.range(0)) / AttributeCount - 1;
}

void RepaintTree(benchmark::State& state) {
    TGroup group(/*subAccounts=*/0, CurrenciesFor(state));
    TTreeScreen screen(group);
    screen.Control().SetAccount(MasterCode);
    screen.Show();
    const Integer nodes = screen.List->RowCount();
    if (nodes != state.range(0)) state.SkipWithError("nodes are missing");
    TAccountDictionary named;
    named.Add(String(MasterCode), group.Accounts().GetAccount(MasterCode, false));
    for (auto _ : state) {
        screen.Control().AccountUpdate(&named, nullptr);
        if (!screen.List->TakeRepaint()) state.SkipWithError("nothing to paint");
        for (Integer row = 0; row < WindowRows; ++row) {
            benchmark::DoNotOptimize(screen.List->CellText(row, screen.Value));
        }
    }
    state.SetItemsProcessed(state.iterations());
}

// The same figures of the same records as texts with two decimals and group marks, by hand.
void TreeByHand(benchmark::State& state) {
    constexpr int decimals = 2;
    constexpr std::ptrdiff_t groupLength = 3;
    TGroup group(/*subAccounts=*/0, CurrenciesFor(state));
    const TCustomAccount& account = *group.Accounts().GetAccount(MasterCode, false);
    std::vector<String> currencies;
    for (Integer index = 0; index < CurrenciesFor(state); ++index) {
        currencies.push_back(CurrencyAt(index));
    }
    String text;
    for (auto _ : state) {
        for (std::size_t row = 0; row < static_cast<std::size_t>(WindowRows); ++row) {
            const TOperation& operation = Operations[1 + row / currencies.size()];
            const auto* record = account.GetAccountData(currencies[row % currencies.size()]);
            const Double value = (record->*operation.Plus)();
            std::array<char, 64> digits;
            const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                                  value, std::chars_format::fixed, decimals)
                                        .ptr;
            const char* const point = end - decimals - 1;
            text.clear();
            for (const char* digit = digits.data(); digit != end; ++digit) {
                const bool endsGroup = digit < point && (point - digit) % groupLength == 0;
                if (digit != digits.data() && endsGroup) text += u',';
                text += static_cast<Char>(*digit);
            }
            benchmark::DoNotOptimize(text.data());
        }
    }
    state.SetItemsProcessed(state.iterations());
}

void BuildTree(benchmark::State& state) {
    TGroup group(/*subAccounts=*/0, CurrenciesFor(state));
    Double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        auto screen = std::make_unique<TTreeScreen>(group);
        screen->Show();
        screen->List->RowCount();
        const Double before = HeapBytes();
        state.ResumeTiming();
        screen->Control().SetAccount(MasterCode);
        screen->List->RowCount();
        state.PauseTiming();
        bytes = HeapBytes() - before;
        screen.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["bytes"] = bytes / static_cast<Double>(state.range(0));
}

QUORIN_GROWTH(RepaintTree, MostNodes);
QUORIN_GROWTH(TreeByHand, MostNodes);
QUORIN_GROWTH(BuildTree, MostNodes);

} // namespace
} // namespace quorin
