#include "benchmarks/AccountGroup.h"

#include "viewdata/account/AccountCashDataControl.h"

#include <array>
#include <charconv>
#include <utility>

// Trees of many nodes, of which 50 rows are on the screen: a repaint after an account update, and
// what a node takes.

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

// The cash tree of so many accounts and their currencies, every node open.
class TCashScreen {
public:
    explicit TCashScreen(Integer nodes) {
        for (Integer index = 0; index < nodes / (CashCurrencies + 1); ++index) {
            const String code = u"CASH-" + IntegerToText(100000 + index);
            Accounts().FeedAccount(code);
            for (Integer currency = 0; currency < CashCurrencies; ++currency) {
                Accounts().FeedBalance(code, CurrencyAt(currency), {.Value991 = 1000.0 * index});
            }
        }
        FServices.Deliver();
        List->SetShape(TcxTreeShape::Children);
        List->SetStartsExpanded(true);
        List->SetOnGetCellText(MakeEvent<&TCashScreen::CellText>(this));
        List->SetCustomDataSource(&FSource);
        Control().MonitorAllAccount();
    }
    TEmbeddedAccountAdapter& Accounts() { return FServices.Accounts(); }

private:
    static constexpr Integer CashCurrencies = 9;

    TCustomAccountCashDataControl& Control() {
        return static_cast<TCustomAccountCashDataControl&>(*FSource.DataControl());
    }
    void CellText(TcxDataRecordHandle node, TcxTreeListColumn& column, String& text) {
        text = Control().GetDisplayValue(node, column.Tag());
    }

    TBenchServices FServices;
    TCustomTreeDataSource FSource{nullptr, TComponentClass::Of<TCustomAccountCashDataControl>()};

public:
    std::unique_ptr<TcxVirtualTreeList> List = CreateComponent<TcxVirtualTreeList>();
    TcxTreeListColumn& Cash = List->AddColumn(AccountAttribute::Cash);
};

void RepaintCashTree(benchmark::State& state) {
    TCashScreen screen(static_cast<Integer>(state.range(0)));
    TcxVirtualTreeList& list = *screen.List;
    if (list.RowCount() != state.range(0)) state.SkipWithError("nodes are missing");
    const String account = screen.Accounts().GetAccountByIndex(0)->GetAccount();
    const String currency = CurrencyAt(0);
    Double amount = 0.0;
    String first;
    for (auto _ : state) {
        screen.Accounts().FeedBalance(account, currency, {.Value991 = ++amount});
        screen.Accounts().Deliver();
        const String before = std::exchange(first, list.CellText(1, screen.Cash));
        if (!list.TakeRepaint() || first == before) state.SkipWithError("nothing new");
        for (Integer row = 0; row < WindowRows; ++row) {
            benchmark::DoNotOptimize(list.CellText(row, screen.Cash));
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
QUORIN_GROWTH(RepaintCashTree, MostNodes);
QUORIN_GROWTH(BuildTree, MostNodes);

} // namespace
} // namespace quorin
