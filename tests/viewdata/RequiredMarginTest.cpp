#include "tests/viewdata/MarketFixture.h"
#include "viewdata/market/MarketAttributes.h"

#include <optional>

namespace quorin {
namespace {

// TCHC is a call on 00700 of the series TCH, HSIF a future of the series HSI without an underlyer.
struct TRequiredMarginTest : TMarketTest {
    TRequiredMarginTest() {
        Services().Items().SetPrefixFeed({}, nullptr); // what items say is told here alone
        Load(u"HKFE");
    }

    void Figure(StringView code, Integer field, Double value) {
        const String key = String(SpanKeyPrefix) + String(code);
        SetField(key, field, value);
        Services().Items().Item(key).SetStatus(ItemStatus::Ready);
    }
    void NoData(StringView code) {
        TEmbeddedSubItem& item = Services().Items().Item(String(SpanKeyPrefix) + String(code));
        item.SetStatus(ItemStatus::NoData);
        Services().Items().Touch(item);
    }
    void Deliver() { Services().Items().Deliver(); }
    // What the search answers, nothing when it answers False; it must then leave its target alone.
    std::optional<Double> Margin(StringView symbol) {
        Double value = -1.0;
        if (Control->GetRequireMargin(symbol, value)) return value;
        EXPECT_EQ(value, -1.0) << "written without a margin";
        return std::nullopt;
    }
};

struct TSearchCase {
    const char* Name;
    const Char* Symbol;
    std::vector<const Char*> Without; // codes of which the service says that they have no data
    std::vector<std::pair<const Char*, Double>> With;
    std::optional<Double> Expected;
    Integer Subscribed; // margin items that the search has come to
};

TEST_F(TRequiredMarginTest, SearchesFromTheSymbolToTheSeries) {
    const TSearchCase cases[] = {
        {"own margin", u"TCHC", {}, {{u"TCHC", 5.0}, {u"TCH*", 6.0}}, 5.0, 1},
        {"stops while the symbol's item waits", u"TCHC", {}, {{u"TCH*", 6.0}}, {}, 1},
        {"options of the series", u"TCHC", {u"TCHC"}, {{u"TCH*", 6.0}, {u"TCH", 8.0}}, 6.0, 2},
        {"stops while the series' options wait", u"TCHC", {u"TCHC"}, {{u"00700", 7.0}}, {}, 2},
        {"underlyer", u"TCHC", {u"TCHC", u"TCH*"}, {{u"00700", 7.0}, {u"TCH", 8.0}}, 7.0, 3},
        {"series", u"TCHC", {u"TCHC", u"TCH*", u"00700"}, {{u"TCH", 8.0}}, 8.0, 4},
        {"nowhere", u"TCHC", {u"TCHC", u"TCH*", u"00700", u"TCH"}, {}, {}, 4},
        {"a future asks for no options",
         u"HSIF",
         {u"HSIF"},
         {{u"HSI*", 6.0}, {u"HSI", 9.0}},
         9.0,
         2},
        {"a share has none", u"00700", {}, {{u"00700", 7.0}}, {}, 0},
        {"unknown symbol whose item waits", u"GHOST", {}, {{u"GHOST", 7.0}}, {}, 0},
    };
    const Integer before = Registered();
    for (const TSearchCase& row : cases) {
        SCOPED_TRACE(row.Name);
        MakeControl(); // margins that were learnt last as long as the control
        for (const Char* code :
             {u"TCHC", u"TCH*", u"00700", u"TCH", u"HSIF", u"HSI", u"HSI*", u"GHOST"}) {
            TEmbeddedSubItem& item = Services().Items().Item(String(SpanKeyPrefix) + code);
            item.ClearField(Field::FirstMargin);
            item.SetStatus(ItemStatus::Waiting);
        }
        for (const Char* code : row.Without) NoData(code);
        for (const auto& [code, figure] : row.With) Figure(code, Field::FirstMargin, figure);
        Deliver();
        EXPECT_EQ(Margin(row.Symbol), row.Expected);
        EXPECT_EQ(Registered() - before, row.Subscribed);
        EXPECT_EQ(Margin(row.Symbol), row.Expected) << "the second time";
        EXPECT_EQ(Registered() - before, row.Subscribed) << "subscribed again";
    }
}

TEST_F(TRequiredMarginTest, ASymbolWithoutARecordIsKnownByItsItem) {
    SetField(u"GHOST", Field::ProductType, u"2");
    SetField(u"GHOST", Field::Series, u"HSI");
    Figure(u"HSI", Field::FirstMargin, 4.0);
    NoData(u"GHOST");
    Deliver();
    EXPECT_EQ(Margin(u"GHOST"), 4.0);
}

TEST_F(TRequiredMarginTest, TheLargestFigureCountsWhateverItsSign) {
    Figure(u"HSIF", Field::FirstMargin, -500.0);
    Figure(u"HSIF", Field::FirstMargin + 3, 300.0);
    Figure(u"HSIF", Field::LastMargin + 1, 900.0); // behind the range
    Deliver();
    EXPECT_EQ(Margin(u"HSIF"), 500.0);
    Figure(u"HSIF", Field::LastMargin, 600.0);
    Deliver();
    EXPECT_EQ(Margin(u"HSIF"), 600.0);
}

TEST_F(TRequiredMarginTest, ArrivalSignalsOnceAndAZeroStaysUnknown) {
    Margin(u"HSIF");
    Margin(u"TCHC");
    EXPECT_EQ(TakeSignals(), 0);
    Figure(u"HSIF", Field::FirstMargin, 0.0);
    Figure(u"TCHC", Field::FirstMargin, 5.0);
    Deliver();
    EXPECT_EQ(TakeSignals(), 1);
    EXPECT_EQ(Margin(u"HSIF"), std::nullopt);
    EXPECT_EQ(Margin(u"TCHC"), 5.0);
    Figure(u"TCHC", Field::FirstMargin, 5.0); // nothing new, and still an update
    Deliver();
    EXPECT_EQ(TakeSignals(), 1);
    Figure(u"TCH", Field::FirstMargin, 5.0); // not asked for
    Deliver();
    EXPECT_EQ(TakeSignals(), 0);
    Control->SpanUpdate(nullptr, nullptr);
    EXPECT_EQ(TakeSignals(), 0);
}

TEST_F(TRequiredMarginTest, ClearingReleasesTheItemsAndKeepsTheMargins) {
    Figure(u"HSIF", Field::FirstMargin, 700.0);
    Deliver();
    const Integer before = Registered();
    EXPECT_EQ(Margin(u"HSIF"), 700.0);
    EXPECT_EQ(Registered(), before + 1);
    Show({}); // the rows on screen say nothing about margins
    EXPECT_EQ(Registered(), before + 1);
    Control->ClearAll();
    EXPECT_EQ(Registered(), before);
    EXPECT_EQ(Margin(u"HSIF"), 700.0);
}

TEST_F(TRequiredMarginTest, CellsShowTheMarginAsAnAmount) {
    const Integer row = 0;
    ASSERT_EQ(Control->GetSymbol(row), u"HSIF");
    EXPECT_EQ(Control->GetValue(row, MarketAttribute::RequiredMargin), Variant(0.0));
    EXPECT_EQ(Control->GetDisplayValue(row, MarketAttribute::RequiredMargin), u"--");
    Figure(u"HSIF", Field::FirstMargin, 123456.5);
    Deliver();
    EXPECT_EQ(Control->GetValue(row, MarketAttribute::RequiredMargin), Variant(123456.5));
    EXPECT_EQ(Control->GetDisplayValue(row, MarketAttribute::RequiredMargin),
              TCustomFormatter::GetInstance()->FormatValue(123456.5, DisplayDataType::Amount,
                                                           u"HSIF", true, nullptr));
    String text = u"before";
    EXPECT_FALSE(Control->GetRequireMargin(u"00700", text));
    EXPECT_EQ(text, u"before");
}

} // namespace
} // namespace quorin
