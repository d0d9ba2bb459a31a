#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

namespace A = PositionViewAttribute;

// Every figure another one, so that no getter passes for its neighbour.
constexpr StringView Base =
    u"qty=300 start=100 sqty=40 sstart=7 buy=200 paid=2600 sell=50 got=800 pbuy=11 psell=13 out=3 "
    u"in=5 cover=17 at=10 type=1 nominal=15 close=9 init=1234.5 real=100.125 exe=65.5 fifn=21 "
    u"mixed=22 avgin=23 held=19 pheld=29";
constexpr StringView OfSub = u"short qty=100 start=60 sqty=10 buy=20 paid=260 sell=30 got=450 "
                             u"pbuy=1 psell=2 out=1 in=4 cover=3 held=1";

struct TPositionViewColumnsTest : TPositionViewTest {
    TPositionViewColumnsTest() {
        Services().Currencies().FeedRatio(u"USD", 8.0);
        Services().Currencies().FeedRatio(u"CNY", 1.25);
        Services().Products().FeedProduct(u"00700", u"A1").SetMarginRatio(0.625);
        Services().Products().FeedProduct(u"00700", u"M1").SetMarginRatio(0.625);
        Services().Products().FeedProduct(u"AU12", {}).SetMarginRatio(0.25);
        for (const StringView symbol : {u"00700", u"HSIF", u"AU12"}) {
            SetField(symbol, Field::LastPrice, 12.0);
            SetField(symbol, Field::PreviousClose, 9.0);
        }
    }
    const String LongFuture = String(Base) + u" long type=2";
    const String ShortFuture = String(Base) + u" short type=2";
    enum TRow : Integer { Net, Long, Short };
    void ShowThreeSides() {
        Hold(u"A1", u"00700", Base);
        Hold(u"A1", u"HSIF", LongFuture);
        Hold(u"A1", u"AU12", ShortFuture);
        Deliver();
        Show(u"A1");
        View->SetConvertCurrency(u"USD");
    }
    void ShowSum() {
        Hold(u"M1", u"00700", Base);
        Hold(u"S1", u"00700", OfSub);
        Deliver();
        Show(u"M1", /*aggregated=*/true);
        View->SetConvertCurrency(u"USD");
    }
};

struct TColumn {
    const char* Name;
    Integer Attribute;
    StringView Net, Long, Short, Sum; // 00700, HSIF, AU12 and the sum of M1 and S1
};
constexpr TColumn Columns[] = {
    {"symbol", 0, u"'00700'", u"'HSIF'", u"'AU12'", u"'00700'"},
    {"last", 3, u"12 8/$/T", u"12 8/$/T", u"12 8/$/T", u"12 8/$/T"},
    {"long", 4, u"300 4/$/T", u"300 | --", u"#0 | --", u"400 4/$/T"},
    {"account", 10, u"'A1'", u"'A1'", u"'A1'", u"'M1'"},
    {"side", 11, u"''", u"'Long'", u"'Short'", u"''"},
    {"exchange", 20, u"'Hong Kong'", u"'Hong Kong Futures'", u"'Shanghai Futures'", u"'Hong Kong'"},
    {"name", 21, u"'Tencent'", u"'Hang Seng future'", u"'Gold future'", u"'Tencent'"},
    {"currency", 23, u"'HKD'", u"'HKD'", u"'RMB'", u"'HKD'"},
    {"expiry", 29, u"''", u"''", u"''", u"''"},
    {"close", 31, u"9 8/$/T", u"9 8/$/T", u"9 8/$/T", u"9 8/$/T"},
    {"available", 35, u"287 4/$/T", u"300 4/$/T", u"300 4/$/T", u"385 4/$/T"},
    {"average", 42, u"22 2/$/T", u"12 2/$/T", u"12 2/$/T", u"#0 | --"},
    {"principal", 46, u"''", u"'Speculation'", u"'Speculation'", u"''"},
    {"bought", 51, u"300 4/$/T", u"300 4/$/T", u"300 4/$/T", u"380 4/$/T"},
    {"sold", 61, u"50 4/$/T", u"50 4/$/T", u"50 4/$/T", u"80 4/$/T"},
    {"average buy", 81, u"12 2/$/T", u"12 2/$/T", u"12 2/$/T", u"#0 | --"},
    {"average sell", 91, u"16 2/$/T", u"16 2/$/T", u"16 2/$/T", u"#0 | --"},
    {"net", 95, u"260 4/$/T", u"260 4/$/T", u"260 4/$/T", u"350 4/$/T"},
    {"held short", 101, u"40 4//T", u"40 4//T", u"40 4//T", u"50 4//T"},
    {"realised", 189, u"100.125 3/$/F", u"#0 | --", u"#0 | --", u"#0 | --"},
    {"value", 405, u"3120 3/$/F", u"156000 3/$/F", u"3120000 3/$/F", u"4200 3/$/F"},
    {"converted value", 406, u"390 3/$/F", u"19500 3/$/F", u"487500 3/$/F", u"525 3/$/F"},
    {"margin ratio", 408, u"0.625 | 62.5 7//T", u"#0 | --", u"0.25 | 25 7//T", u"#0 | --"},
    {"unrealised", 446, u"1199.875 3/$/F", u"#0 | --", u"#0 | --", u"#0 | --"},
    {"short", 470, u"#0 | --", u"#0 | --", u"300 | --", u"#0 | --"},
    {"bought today", 479, u"200 4/$/T", u"200 4/$/T", u"200 4/$/T", u"220 4/$/T"},
    {"sold today", 480, u"50 4/$/T", u"50 4/$/T", u"50 4/$/T", u"80 4/$/T"},
    {"pending buy", 481, u"11 4//T", u"11 4//T", u"11 4//T", u"12 4//T"},
    {"pending sell", 482, u"13 4/$/T", u"13 4/$/T", u"13 4/$/T", u"15 4/$/T"},
    {"deposited", 483, u"5 4//T", u"5 4//T", u"5 4//T", u"9 4//T"},
    {"withdrawn", 484, u"3 4//T", u"3 4//T", u"3 4//T", u"4 4//T"},
    {"size", 504, u"0 | --", u"50 4/$/T", u"1000 4/$/T", u"0 | --"},
    // (15 - 12) x 300 x the size
    {"profit", 607, u"1300 3/$/F", u"45000 3/$/F", u"-900000 3/$/F", u"#0 | --"},
    {"net amount", 617, u"1800 3//T", u"1800 3//T", u"1800 3//T", u"1610 3//T"},
    {"net traded", 618, u"150 4//T", u"150 4//T", u"150 4//T", u"140 4//T"},
    {"converted accept value", 896, u"243.75 3//T", u"#0 | --", u"121875 3//T", u"#0 | --"},
    {"accept value", 997, u"1950 3//T", u"#0 | --", u"780000 3//T", u"#0 | --"},
    {"covered", 1105, u"17 4/$/T", u"17 | --", u"17 4/$/T", u"20 4/$/T"},
    {"moved", 1302, u"2 4/$/T", u"2 4/$/T", u"2 4/$/T", u"5 4/$/T"},
    {"average buy today", 3101, u"13 2/$/T", u"13 2/$/T", u"13 2/$/T", u"13 2/$/T"},
    {"average sell today", 3102, u"16 2/$/T", u"16 2/$/T", u"16 2/$/T", u"15.625 2/$/T"},
    {"paid today", 3116, u"2600 3//T", u"2600 3//T", u"2600 3//T", u"2860 3//T"},
    {"received today", 3119, u"800 3//T", u"800 3//T", u"800 3//T", u"1250 3//T"},
    {"start", 9014, u"100 4/$/T", u"100 4/$/T", u"100 4/$/T", u"160 4/$/T"},
    {"custody", 10000, u"-19 4//T", u"-19 4//T", u"-19 4//T", u"-20 4//T"},
    {"net with custody", 10001, u"279 4//T", u"279 4//T", u"279 4//T", u"370 4//T"},
    {"left from start", 10002, u"0 | --", u"100 4/$/T", u"-100 4/$/T", u"0 | --"},
    {"opened", 10003, u"#0 | --", u"200 4/$/T", u"50 4/$/T", u"#0 | --"},
    {"closed", 10004, u"#0 | --", u"50 4/$/T", u"200 4/$/T", u"#0 | --"},
    {"no column", 9999, u"''", u"''", u"''", u"''"},
};

TEST_F(TPositionViewColumnsTest, EveryColumnOfEverySide) {
    SpyOnFormatter();
    ShowThreeSides();
    for (const TColumn& column : Columns) {
        EXPECT_EQ(Cell(Net, column.Attribute), column.Net) << column.Name;
        EXPECT_EQ(Cell(Long, column.Attribute), column.Long) << column.Name;
        EXPECT_EQ(Cell(Short, column.Attribute), column.Short) << column.Name;
    }
}

TEST_F(TPositionViewColumnsTest, EveryColumnOfASum) {
    SpyOnFormatter();
    ShowSum();
    for (const TColumn& column : Columns) {
        EXPECT_EQ(Cell(0, column.Attribute), column.Sum) << column.Name;
    }
}

TEST_F(TPositionViewColumnsTest, ASumOfSidedRecordsHasTheSideOfTheFirst) {
    SpyOnFormatter();
    Hold(u"M1", u"AU12", ShortFuture);
    Hold(u"S1", u"AU12", LongFuture);
    Show(u"M1", /*aggregated=*/true);
    constexpr std::pair<Integer, StringView> cells[] = {
        {A::AveragePrice, u"#0 | --"},
        {A::RealisedPL, u"#0 | --"},
        {A::TotalPL, u"#0 | --"},
        {A::Side, u"'Short'"},
        {4, u"#0 | --"},
        {470, u"600 | --"},
        {10002, u"-200 4/$/T"},
        {10003, u"100 4/$/T"},
        {10004, u"400 4/$/T"},
        {46, u"'Speculation'"},
    };
    for (const auto& [attribute, cell] : cells) EXPECT_EQ(Cell(0, attribute), cell) << attribute;
}

TEST_F(TPositionViewColumnsTest, ShortRecordsTurnNegativeBySetting) {
    SpyOnFormatter();
    SetConfig(ConfigKey::ShowNegForShortPos, u"1");
    MakeView();
    ShowThreeSides();
    constexpr std::pair<Integer, StringView> cells[] = {{95, u"260 | -260 4/$/T"},
                                                        {1105, u"17 | -17 4/$/T"},
                                                        {9014, u"100 | -100 4/$/T"},
                                                        {101, u"40 4//T"},
                                                        {10001, u"279 4//T"}};
    for (const auto& [attribute, cell] : cells) EXPECT_EQ(Cell(Short, attribute), cell);
    EXPECT_EQ(Cell(Net, 95), u"260 4/$/T");
    EXPECT_EQ(Cell(Long, 95), u"260 4/$/T");
}

TEST_F(TPositionViewColumnsTest, TextsOfTheRealFormatter) {
    ShowThreeSides();
    String text;
    for (const Integer column : {42, 95, 189, 405, 408, 446, 607, 997, 3116, 10000}) {
        text += View->GetDisplayValue(Net, column) + u" | ";
    }
    EXPECT_EQ(text, u"22 | 260 | 100.13 | 3,120.00 | 62.50% | 1,199.88 | 1,300.00 | 1,950 | 2,600 "
                    u"| -19 | ");
    EXPECT_EQ(Kinded(View->GetValue(Net, A::RealisedPL)), u"100.13") << "as the cell shows it";
    EXPECT_EQ(Kinded(View->GetValue(Net, A::UnrealisedPL)), u"1199.88");
    Hold(u"A1", u"HSIF", u"long qty=1 buy=3 paid=1");
    EXPECT_EQ(Kinded(View->GetValue(Long, A::TotalPL)), u"-16.6666666666667") << "not rounded";
    EXPECT_EQ(View->GetDisplayValue(Long, A::TotalPL), u"-16.67");
}

TEST_F(TPositionViewColumnsTest, BadRowsAndAttributes) {
    ShowThreeSides();
    constexpr Integer blocked[] = {42, 81, 91, 189, 408, 446, 607, 896, 997};
    for (const Integer row : {-1, 3, 2147483647, -2147483647 - 1}) {
        for (const TColumn& column : Columns) {
            EXPECT_EQ(Cell(row, column.Attribute), u"'' | --") << column.Name << " of " << row;
        }
    }
    EXPECT_EQ(Cell(0, -1), u"'' | --");
    EXPECT_EQ(Cell(0, -42), u"'' | --");
    ShowSum();
    for (const Integer row : {-1, 1, 0}) {
        for (const Integer column : blocked) EXPECT_EQ(Cell(row, column), u"#0 | --") << column;
    }
    EXPECT_EQ(Cell(-1, 51), u"'' | --");
    EXPECT_EQ(Cell(1, 51), u"'' | --");
    EXPECT_EQ(Cell(0, -607), u"'' | --");
}

// What a cell shows for one figure at -2e-7, -1e-7, -5e-8, 0, 5e-8, 1e-7 and 2e-7: S a number.
struct TBorder {
    const char* Name;
    Integer Attribute;
    Double TPositionFigures::*Figure;
    StringView Shown;
    bool WholeIfHidden = false; // the raw value is then whole 0, otherwise a Double
    StringView Others = {};
};
using F = TPositionFigures;
constexpr StringView FarFromZero = u"S.....S";
constexpr StringView Above = u"......S";
constexpr StringView Below = u"S......";
constexpr TBorder Borders[] = {
    {"net", 95, &F::Quantity, FarFromZero},
    {"held short", 101, &F::ShortQuantity, FarFromZero},
    {"bought by start", 51, &F::BODQuantity, Above, true},
    {"bought by trades", 51, &F::TodayBuyQty, Above, true},
    {"sold by start", 61, &F::BODQuantity, Below, true},
    {"sold by trades", 61, &F::TodaySellQty, Above, true},
    {"average buy by start", 81, &F::BODQuantity, Above, true},
    {"average buy by trades", 81, &F::TodayBuyQty, Above, true},
    {"average sell by start", 91, &F::BODQuantity, Below, true},
    {"average sell by trades", 91, &F::TodaySellQty, Above, true},
    {"average long by start", 42, &F::BODQuantity, FarFromZero, true, u"long"},
    {"average long by trades", 42, &F::TodayBuyQty, FarFromZero, true, u"long"},
    {"average short", 42, &F::BODQuantity, u"SSS.SSS", true, u"short"},
    {"average short by trades", 42, &F::TodaySellQty, u"SSS.SSS", true, u"short"},
    {"bought today", 479, &F::TodayBuyQty, Above},
    {"sold today", 480, &F::TodaySellQty, Above},
    {"pending buy", 481, &F::TodayPendBuyQty, Above},
    {"deposited", 483, &F::DepositQty, Above},
    {"withdrawn", 484, &F::WithdrawQty, Above},
    {"net amount by buys", 617, &F::TodayBuyQty, Above},
    {"net amount by sells", 617, &F::TodaySellQty, Above},
    {"net traded by buys", 618, &F::TodayBuyQty, Above},
    {"net traded by sells", 618, &F::TodaySellQty, Above},
    {"covered", 1105, &F::CoveredQty, FarFromZero, false, u"start=1"},
    {"covered by start", 1105, &F::BODQuantity, FarFromZero, false, u"cover=5"},
    {"covered by buys", 1105, &F::TodayBuyQty, Above, false, u"cover=5"},
    {"covered by sells", 1105, &F::TodaySellQty, Above, false, u"cover=5"},
    {"moved by deposits", 1302, &F::DepositQty, Above},
    {"moved by withdrawals", 1302, &F::WithdrawQty, Above},
    {"average buy today", 3101, &F::TodayBuyQty, FarFromZero, true},
    {"average sell today", 3102, &F::TodaySellQty, FarFromZero, true},
    {"paid today", 3116, &F::TodayBuyQty, Above},
    {"received today", 3119, &F::TodaySellQty, Above},
    {"custody", 10000, &F::CustodianQty, FarFromZero},
    {"net with custody", 10001, &F::CustodianQty, u"SSSSSSS"},
    {"left from start", 10002, &F::BODQuantity, FarFromZero, false, u"long"},
    {"opened", 10003, &F::TodayBuyQty, u"SSSSSSS", false, u"long"},
    {"closed", 10004, &F::TodayBuyQty, u"SSSSSSS", false, u"short"},
};

TEST_F(TPositionViewColumnsTest, Borders) {
    Hold(u"A1", u"00700", 1.0);
    Deliver();
    Show(u"A1");
    for (const TBorder& border : Borders) {
        String shown;
        String kinds;
        String expectedKinds;
        std::size_t place = 0;
        for (const Double value : {-2e-7, -1e-7, -5e-8, 0.0, 5e-8, 1e-7, 2e-7}) {
            TPositionFigures figures = Figures(border.Others);
            figures.*border.Figure = value;
            Hold(u"A1", u"00700", figures); // in place: the row stays until it is told
            const bool isShown = View->GetDisplayValue(0, border.Attribute) != u"--";
            shown += isShown ? u'S' : u'.';
            const Variant raw = View->GetValue(0, border.Attribute);
            kinds += raw.Kind() == Variant::TKind::Whole ? u'#' : u'r';
            const bool isWhole = border.WholeIfHidden && border.Shown[place++] == u'.';
            expectedKinds += isWhole ? u'#' : u'r';
        }
        EXPECT_EQ(shown, border.Shown) << border.Name;
        EXPECT_EQ(kinds, expectedKinds) << border.Name;
    }
}

TEST_F(TPositionViewColumnsTest, TradesThatCancelShowNoNetQuantity) {
    Hold(u"A1", u"00700", 1.0);
    Show(u"A1");
    for (const auto& [bought, text] : {std::pair(5.0, u"--"), {5.00000005, u"--"}, {6.0, u"1"}}) {
        Hold(u"A1", u"00700", {.TodayBuyQty = bought, .TodaySellQty = 5.0});
        EXPECT_EQ(View->GetDisplayValue(0, A::TodayNetQuantity), text) << bought;
        EXPECT_EQ(View->GetDisplayValue(0, A::TodayNetAmount), u"0");
    }
}

TEST_F(TPositionViewColumnsTest, AverageAndTotalRecipes) {
    struct TCase {
        const char* Name;
        StringView Figures, Bought, Sold, AverageBuy, AverageSell;
    };
    constexpr TCase cases[] = {
        {"start and trades", u"start=100 at=10 buy=100 paid=1200", u"200", u"#0", u"11", u"#0"},
        {"no start price", u"start=100 close=9 buy=100 paid=1200", u"200", u"#0", u"10.5", u"#0"},
        {"start price near zero", u"start=100 at=1e-7 close=9", u"100", u"#0", u"9", u"#0"},
        {"start price above", u"start=100 at=2e-7 close=9", u"100", u"#0", u"2E-7", u"#0"},
        {"short start", u"start=-100 at=13 sell=50 got=500", u"#0", u"150", u"#0", u"12"},
        {"short, bought", u"start=-100 at=13 buy=50 paid=600", u"50", u"100", u"12", u"13"},
        {"bought below the start", u"start=100 at=10 buy=-100", u"0", u"#0", u"#0", u"#0"},
        {"sold below the start", u"start=-100 at=10 sell=-100", u"#0", u"0", u"#0", u"#0"},
        {"trades", u"buy=4 paid=10 sell=2 got=7 at=99", u"4", u"2", u"2.5", u"3.5"},
    };
    Hold(u"A1", u"00700", 1.0);
    Show(u"A1");
    for (const TCase& row : cases) {
        Hold(u"A1", u"00700", row.Figures);
        const auto value = [this](Integer column) { return Kinded(View->GetValue(0, column)); };
        EXPECT_EQ(value(A::TotalBought), row.Bought) << row.Name;
        EXPECT_EQ(value(A::TotalSold), row.Sold) << row.Name;
        EXPECT_EQ(value(A::AverageBuyPrice), row.AverageBuy) << row.Name;
        EXPECT_EQ(value(A::AverageSellPrice), row.AverageSell) << row.Name;
    }
}

} // namespace
} // namespace quorin
