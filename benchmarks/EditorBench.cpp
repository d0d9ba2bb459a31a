#include "benchmarks/BenchMarket.h"

#include "viewdata/editors/EditorManager.h"
#include "viewdata/presentation/IImageResource.h"

#include <array>
#include <charconv>
#include <memory>
#include <vector>

// What a person at an order ticket waits for: a key in a price field until its text stands there
// with its group marks, and linked symbol fields until they show what one of them has changed to.

namespace quorin {
namespace {

constexpr StringView Table = u"BENCHTABLE";
constexpr StringView Group = u"G";
constexpr Integer LinkedFields = 1'000;

// The editors over a universe, gone before the next benchmark.
class TEditorBench {
public:
    explicit TEditorBench(TBenchUniverse& universe) : FUniverse(universe) {}
    ~TEditorBench() {
        TEditorManager::ReleaseInstance();
        TIImageResourceList::ReleaseInstance();
    }
    TEditorBench(const TEditorBench&) = delete;
    TEditorBench& operator=(const TEditorBench&) = delete;

    TEditorManager& Manager() { return *TEditorManager::GetInstance(); }
    TEmbeddedServices& Services() { return FUniverse.Services(); }
    // The first symbol with a tick table of many bands.
    String SymbolWithTable() {
        std::vector<TSpreadBand> bands;
        for (Double from = 0.0, tick = 0.01; from < 1e6; from = bands.back().To, tick *= 2.0) {
            bands.push_back({from, from == 0.0 ? 1.0 : from * 4.0, tick});
        }
        Services().Market().AddSpreadTable(Table, bands);
        Services().Market().SetSpreadTablesAtOnce(true);
        Services().Items().Item(SymbolAt(0)).SetField(Field::SpreadCode, Table);
        return SymbolAt(0);
    }

private:
    TBenchUniverse& FUniverse;
};

// A digit more and a digit less, each of which moves every group mark.
void PriceKeyPress(benchmark::State& state) {
    TEditorBench bench(TBenchUniverse::Of(state));
    TControl form;
    TcxSpinEdit edit;
    edit.SetParent(&form);
    bench.Manager().RegisterPriceEditor(&edit, {});
    bench.Manager().SetPriceSymbol(&edit, bench.SymbolWithTable());
    edit.Enter();
    edit.TypeText(u"123456");
    if (edit.Properties().Increment() == 1.0) state.SkipWithError("no step of a table");
    bool isLonger = false;
    for (auto _ : state) {
        if (isLonger) {
            edit.PressKey(Key::Back);
            edit.ReleaseKey(Key::Back);
        } else {
            edit.PressKey(u'7', TShiftState::None, u"7");
            edit.ReleaseKey(u'7');
        }
        isLonger = !isLonger;
        benchmark::DoNotOptimize(edit.Text().data());
    }
    if (edit.Text() != (isLonger ? u"1,234,567" : u"123,456")) state.SkipWithError("wrong text");
    state.SetItemsProcessed(state.iterations());
}

// The same two numbers as texts with group marks, as directly as it goes.
void ToCharsGrouped(benchmark::State& state) {
    constexpr Double Numbers[] = {1234567.0, 123456.0};
    constexpr std::ptrdiff_t GroupLength = 3;
    std::array<char, 64> digits{};
    String text;
    std::size_t next = 0;
    for (auto _ : state) {
        const Double number = Numbers[next++ % std::size(Numbers)];
        benchmark::DoNotOptimize(number);
        const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                        std::chars_format::fixed)
                              .ptr;
        text.clear();
        for (const char* digit = digits.data(); digit != end; ++digit) {
            if (digit != digits.data() && (end - digit) % GroupLength == 0) text += u',';
            text += static_cast<Char>(*digit);
        }
        benchmark::DoNotOptimize(text.data());
    }
    if (text != u"1,234,567" && text != u"123,456") state.SkipWithError("wrong text");
    state.SetItemsProcessed(state.iterations());
}

// Counts what is published of the current symbol.
class TPublications : public TObject {
    QUORIN_CLASS(TPublications, TObject)

    TPublications() {
        TCustomGlobalChannelManager::GetInstance()->RegisterChannelCallback(
            Channel::CurrentSymbol, MakeEvent<&TPublications::Heard>(this), this);
    }
    ~TPublications() override {
        TCustomGlobalChannelManager::GetInstance()->RemoveChannelCallback(Channel::CurrentSymbol,
                                                                          this);
    }
    Int64 Count() const { return FCount; }

private:
    void Heard(Pointer, Pointer) { ++FCount; }

    Int64 FCount = 0;
};

// So many fields of one group; the first is typed into and accepted, the others follow.
void LinkedSymbolFields(benchmark::State& state) {
    TEditorBench bench(TBenchUniverse::OfSize(SmallUniverse));
    TControl form;
    bench.Services().Channels().SetGroupValue(Group, Channel::CurrentSymbol, {});
    std::vector<std::unique_ptr<TcxPopupEdit>> fields;
    for (Int64 index = 0; index < state.range(0); ++index) {
        fields.push_back(CreateComponent<TcxPopupEdit>());
        fields.back()->SetParent(&form);
        bench.Manager().RegisterSymbolEditor(fields.back().get(), Group, false, true);
    }
    const String symbols[] = {SymbolAt(1), SymbolAt(2)};
    TcxPopupEdit& typed = *fields.front();
    typed.Enter();
    const TPublications publications;
    std::size_t next = 0;
    Int64 stragglers = 0;
    for (auto _ : state) {
        const String& symbol = symbols[next++ % std::size(symbols)];
        typed.SelectAll();
        typed.TypeText(symbol);
        typed.PressKey(Key::Return);
        typed.ReleaseKey(Key::Return);
        stragglers += fields.back()->Hint() != symbol;
    }
    if (publications.Count() != state.iterations()) state.SkipWithError("not one publication");
    if (stragglers > 0) state.SkipWithError("a field has not followed");
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

QUORIN_GROWTH(PriceKeyPress);
QUORIN_GROWTH(ToCharsGrouped);
QUORIN_GROWTH(LinkedSymbolFields, /*Largest=*/LinkedFields);

} // namespace
} // namespace quorin
