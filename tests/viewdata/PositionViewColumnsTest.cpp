#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

namespace A = PositionViewAttribute;

// Every figure another one, so that no getter passes for its neighbour.
constexpr TPositionFigures Base{.Quantity = 300.0,
                                .BODQuantity = 100.0,
                                .ShortQuantity = 40.0,
                                .BODShortQuantity = 7.0,
                                .TodayBuyQty = 200.0,
                                .TodayBuyAmount = 2600.0,
                                .TodaySellQty = 50.0,
                                .TodaySellAmount = 800.0,
                                .TodayPendBuyQty = 11.0,
                                .TodayPendSellQty = 13.0,
                                .WithdrawQty = 3.0,
                                .DepositQty = 5.0,
                                .CoveredQty = 17.0,
                                .BODPrice = 10.0,
                                .ProdType = StockProductType,
                                .Nominal = 15.0,
                                .PClose = 9.0,
                                .InitPL = 1234.5,
                                .RealPL = 100.125,
                                .ExePL = 65.5,
                                .AvgPriceFIFN = 21.0,
                                .AvgPriceMixed = 22.0,
                                .AvgPriceIn = 23.0,
                                .CustodianQty = 19.0,
                                .PendCustodianQty = 29.0};
constexpr TPositionFigures OfSub{.Side = TPositionSide::Short,
                                 .Quantity = 100.0,
                                 .BODQuantity = 60.0,
                                 .ShortQuantity = 10.0,
                                 .TodayBuyQty = 20.0,
                                 .TodayBuyAmount = 260.0,
                                 .TodaySellQty = 30.0,
                                 .TodaySellAmount = 450.0,
                                 .TodayPendBuyQty = 1.0,
                                 .TodayPendSellQty = 2.0,
                                 .WithdrawQty = 1.0,
                                 .DepositQty = 4.0,
                                 .CoveredQty = 3.0,
                                 .CustodianQty = 1.0};

TPositionFigures With(TPositionFigures figures, TPositionSide side, Integer type) {
    figures.Side = side;
    figures.ProdType = type;
    return figures;
}

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
    enum TRow : Integer { Net, Long, Short };
    void ShowThreeSides() {
        Hold(u"A1", u"00700", Base);
        Hold(u"A1", u"HSIF", With(Base, TPositionSide::Long, ProductType::Futures));
        Hold(u"A1", u"AU12", With(Base, TPositionSide::Short, ProductType::Futures));
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
    {"symbol", 0, u"'00700' | 00700", u"'HSIF' | HSIF", u"'AU12' | AU12", u"'00700' | 00700"},
    {"last", 3, u"12 | 12 8/$/T", u"12 | 12 8/$/T", u"12 | 12 8/$/T", u"12 | 12 8/$/T"},
    {"long", 4, u"300 | 300 4/$/T", u"300 | --", u"#0 | --", u"400 | 400 4/$/T"},
    {"account", 10, u"'A1' | A1", u"'A1' | A1", u"'A1' | A1", u"'M1' | M1"},
    {"side", 11, u"'' | ", u"'Long' | Long", u"'Short' | Short", u"'' | "},
    {"exchange", 20, u"'Hong Kong' | Hong Kong", u"'Hong Kong Futures' | Hong Kong Futures",
     u"'Shanghai Futures' | Shanghai Futures", u"'Hong Kong' | Hong Kong"},
    {"name", 21, u"'Tencent' | Tencent", u"'Hang Seng future' | Hang Seng future",
     u"'Gold future' | Gold future", u"'Tencent' | Tencent"},
    {"currency", 23, u"'HKD' | HKD", u"'HKD' | HKD", u"'RMB' | RMB", u"'HKD' | HKD"},
    {"expiry", 29, u"'' | ", u"'' | ", u"'' | ", u"'' | "},
    {"close", 31, u"9 | 9 8/$/T", u"9 | 9 8/$/T", u"9 | 9 8/$/T", u"9 | 9 8/$/T"},
    {"available", 35, u"287 | 287 4/$/T", u"300 | 300 4/$/T", u"300 | 300 4/$/T",
     u"385 | 385 4/$/T"},
    {"average", 42, u"22 | 22 2/$/T", u"12 | 12 2/$/T", u"12 | 12 2/$/T", u"#0 | --"},
    {"principal", 46, u"'' | ", u"'Speculation' | Speculation", u"'Speculation' | Speculation",
     u"'' | "},
    {"bought", 51, u"300 | 300 4/$/T", u"300 | 300 4/$/T", u"300 | 300 4/$/T", u"380 | 380 4/$/T"},
    {"sold", 61, u"50 | 50 4/$/T", u"50 | 50 4/$/T", u"50 | 50 4/$/T", u"80 | 80 4/$/T"},
    {"average buy", 81, u"12 | 12 2/$/T", u"12 | 12 2/$/T", u"12 | 12 2/$/T", u"#0 | --"},
    {"average sell", 91, u"16 | 16 2/$/T", u"16 | 16 2/$/T", u"16 | 16 2/$/T", u"#0 | --"},
    {"net", 95, u"260 | 260 4/$/T", u"260 | 260 4/$/T", u"260 | 260 4/$/T", u"350 | 350 4/$/T"},
    {"held short", 101, u"40 | 40 4//T", u"40 | 40 4//T", u"40 | 40 4//T", u"50 | 50 4//T"},
    {"realised", 189, u"100.125 | 100.125 3/$/F", u"#0 | --", u"#0 | --", u"#0 | --"},
    {"value", 405, u"3120 | 3120 3/$/F", u"156000 | 156000 3/$/F", u"3120000 | 3120000 3/$/F",
     u"4200 | 4200 3/$/F"},
    {"converted value", 406, u"390 | 390 3/$/F", u"19500 | 19500 3/$/F", u"487500 | 487500 3/$/F",
     u"525 | 525 3/$/F"},
    {"margin ratio", 408, u"0.625 | 62.5 7//T", u"#0 | --", u"0.25 | 25 7//T", u"#0 | --"},
    {"unrealised", 446, u"1199.875 | 1199.875 3/$/F", u"#0 | --", u"#0 | --", u"#0 | --"},
    {"short", 470, u"#0 | --", u"#0 | --", u"300 | --", u"#0 | --"},
    {"bought today", 479, u"200 | 200 4/$/T", u"200 | 200 4/$/T", u"200 | 200 4/$/T",
     u"220 | 220 4/$/T"},
    {"sold today", 480, u"50 | 50 4/$/T", u"50 | 50 4/$/T", u"50 | 50 4/$/T", u"80 | 80 4/$/T"},
    {"pending buy", 481, u"11 | 11 4//T", u"11 | 11 4//T", u"11 | 11 4//T", u"12 | 12 4//T"},
    {"pending sell", 482, u"13 | 13 4/$/T", u"13 | 13 4/$/T", u"13 | 13 4/$/T", u"15 | 15 4/$/T"},
    {"deposited", 483, u"5 | 5 4//T", u"5 | 5 4//T", u"5 | 5 4//T", u"9 | 9 4//T"},
    {"withdrawn", 484, u"3 | 3 4//T", u"3 | 3 4//T", u"3 | 3 4//T", u"4 | 4 4//T"},
    {"size", 504, u"0 | --", u"50 | 50 4/$/T", u"1000 | 1000 4/$/T", u"0 | --"},
    // (15 - 12) x 300 x the size
    {"profit", 607, u"1300 | 1300 3/$/F", u"45000 | 45000 3/$/F", u"-900000 | -900000 3/$/F",
     u"#0 | --"},
    {"net amount", 617, u"1800 | 1800 3//T", u"1800 | 1800 3//T", u"1800 | 1800 3//T",
     u"1610 | 1610 3//T"},
    {"net traded", 618, u"150 | 150 4//T", u"150 | 150 4//T", u"150 | 150 4//T", u"140 | 140 4//T"},
    {"converted accept value", 896, u"243.75 | 243.75 3//T", u"#0 | --", u"121875 | 121875 3//T",
     u"#0 | --"},
    {"accept value", 997, u"1950 | 1950 3//T", u"#0 | --", u"780000 | 780000 3//T", u"#0 | --"},
    {"covered", 1105, u"17 | 17 4/$/T", u"17 | --", u"17 | 17 4/$/T", u"20 | 20 4/$/T"},
    {"moved", 1302, u"2 | 2 4/$/T", u"2 | 2 4/$/T", u"2 | 2 4/$/T", u"5 | 5 4/$/T"},
    {"average buy today", 3101, u"13 | 13 2/$/T", u"13 | 13 2/$/T", u"13 | 13 2/$/T",
     u"13 | 13 2/$/T"},
    {"average sell today", 3102, u"16 | 16 2/$/T", u"16 | 16 2/$/T", u"16 | 16 2/$/T",
     u"15.625 | 15.625 2/$/T"},
    {"paid today", 3116, u"2600 | 2600 3//T", u"2600 | 2600 3//T", u"2600 | 2600 3//T",
     u"2860 | 2860 3//T"},
    {"received today", 3119, u"800 | 800 3//T", u"800 | 800 3//T", u"800 | 800 3//T",
     u"1250 | 1250 3//T"},
    {"start", 9014, u"100 | 100 4/$/T", u"100 | 100 4/$/T", u"100 | 100 4/$/T", u"160 | 160 4/$/T"},
    {"custody", 10000, u"-19 | -19 4//T", u"-19 | -19 4//T", u"-19 | -19 4//T", u"-20 | -20 4//T"},
    {"net with custody", 10001, u"279 | 279 4//T", u"279 | 279 4//T", u"279 | 279 4//T",
     u"370 | 370 4//T"},
    {"left from start", 10002, u"0 | --", u"100 | 100 4/$/T", u"-100 | -100 4/$/T", u"0 | --"},
    {"opened", 10003, u"#0 | --", u"200 | 200 4/$/T", u"50 | 50 4/$/T", u"#0 | --"},
    {"closed", 10004, u"#0 | --", u"50 | 50 4/$/T", u"200 | 200 4/$/T", u"#0 | --"},
    {"no column", 9999, u"'' | ", u"'' | ", u"'' | ", u"'' | "},
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
    Hold(u"M1", u"AU12", With(Base, TPositionSide::Short, ProductType::Futures));
    Hold(u"S1", u"AU12", With(Base, TPositionSide::Long, ProductType::Futures));
    Show(u"M1", /*aggregated=*/true);
    constexpr std::pair<Integer, StringView> cells[] = {
        {A::AveragePrice, u"#0 | --"},
        {A::RealisedPL, u"#0 | --"},
        {A::TotalPL, u"#0 | --"},
        {A::Side, u"'Short' | Short"},
        {4, u"#0 | --"},
        {470, u"600 | --"},
        {10002, u"-200 | -200 4/$/T"},
        {10003, u"100 | 100 4/$/T"},
        {10004, u"400 | 400 4/$/T"},
        {46, u"'Speculation' | Speculation"},
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
                                                        {101, u"40 | 40 4//T"},
                                                        {10001, u"279 | 279 4//T"}};
    for (const auto& [attribute, cell] : cells) EXPECT_EQ(Cell(Short, attribute), cell);
    EXPECT_EQ(Cell(Net, 95), u"260 | 260 4/$/T");
    EXPECT_EQ(Cell(Long, 95), u"260 | 260 4/$/T");
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
    Hold(u"A1", u"HSIF",
         TPositionFigures{.Side = TPositionSide::Long,
                          .Quantity = 1.0,
                          .TodayBuyQty = 3.0,
                          .TodayBuyAmount = 1.0});
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
    TPositionFigures Others = {};
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
    {"average long by start",
     42,
     &F::BODQuantity,
     FarFromZero,
     true,
     {.Side = TPositionSide::Long}},
    {"average long by trades",
     42,
     &F::TodayBuyQty,
     FarFromZero,
     true,
     {.Side = TPositionSide::Long}},
    {"average short", 42, &F::BODQuantity, u"SSS.SSS", true, {.Side = TPositionSide::Short}},
    {"average short by trades",
     42,
     &F::TodaySellQty,
     u"SSS.SSS",
     true,
     {.Side = TPositionSide::Short}},
    {"bought today", 479, &F::TodayBuyQty, Above},
    {"sold today", 480, &F::TodaySellQty, Above},
    {"pending buy", 481, &F::TodayPendBuyQty, Above},
    {"deposited", 483, &F::DepositQty, Above},
    {"withdrawn", 484, &F::WithdrawQty, Above},
    {"net amount by buys", 617, &F::TodayBuyQty, Above},
    {"net amount by sells", 617, &F::TodaySellQty, Above},
    {"net traded by buys", 618, &F::TodayBuyQty, Above},
    {"net traded by sells", 618, &F::TodaySellQty, Above},
    {"covered", 1105, &F::CoveredQty, FarFromZero, false, {.BODQuantity = 1.0}},
    {"covered by start", 1105, &F::BODQuantity, FarFromZero, false, {.CoveredQty = 5.0}},
    {"covered by buys", 1105, &F::TodayBuyQty, Above, false, {.CoveredQty = 5.0}},
    {"covered by sells", 1105, &F::TodaySellQty, Above, false, {.CoveredQty = 5.0}},
    {"moved by deposits", 1302, &F::DepositQty, Above},
    {"moved by withdrawals", 1302, &F::WithdrawQty, Above},
    {"average buy today", 3101, &F::TodayBuyQty, FarFromZero, true},
    {"average sell today", 3102, &F::TodaySellQty, FarFromZero, true},
    {"paid today", 3116, &F::TodayBuyQty, Above},
    {"received today", 3119, &F::TodaySellQty, Above},
    {"custody", 10000, &F::CustodianQty, FarFromZero},
    {"net with custody", 10001, &F::CustodianQty, u"SSSSSSS"},
    {"left from start", 10002, &F::BODQuantity, FarFromZero, false, {.Side = TPositionSide::Long}},
    {"opened", 10003, &F::TodayBuyQty, u"SSSSSSS", false, {.Side = TPositionSide::Long}},
    {"closed", 10004, &F::TodayBuyQty, u"SSSSSSS", false, {.Side = TPositionSide::Short}},
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
            TPositionFigures figures = border.Others;
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
        TPositionFigures Figures;
        StringView Bought, Sold, AverageBuy, AverageSell;
    };
    constexpr TCase cases[] = {
        {"start and trades",
         {.BODQuantity = 100, .TodayBuyQty = 100, .TodayBuyAmount = 1200, .BODPrice = 10},
         u"200",
         u"#0",
         u"11",
         u"#0"},
        {"start without price",
         {.BODQuantity = 100, .TodayBuyQty = 100, .TodayBuyAmount = 1200, .PClose = 9},
         u"200",
         u"#0",
         u"10.5",
         u"#0"},
        {"start price near zero",
         {.BODQuantity = 100, .BODPrice = 1e-7, .PClose = 9},
         u"100",
         u"#0",
         u"9",
         u"#0"},
        {"start price just above",
         {.BODQuantity = 100, .BODPrice = 2e-7, .PClose = 9},
         u"100",
         u"#0",
         u"2E-7",
         u"#0"},
        {"short from start",
         {.BODQuantity = -100, .TodaySellQty = 50, .TodaySellAmount = 500, .BODPrice = 13},
         u"#0",
         u"150",
         u"#0",
         u"12"},
        {"short from start, bought",
         {.BODQuantity = -100, .TodayBuyQty = 50, .TodayBuyAmount = 600, .BODPrice = 13},
         u"50",
         u"100",
         u"12",
         u"13"},
        {"bought back below the start",
         {.BODQuantity = 100, .TodayBuyQty = -100, .BODPrice = 10},
         u"0",
         u"#0",
         u"#0",
         u"#0"},
        {"sold below the start",
         {.BODQuantity = -100, .TodaySellQty = -100, .BODPrice = 10},
         u"#0",
         u"0",
         u"#0",
         u"#0"},
        {"trades alone",
         {.TodayBuyQty = 4,
          .TodayBuyAmount = 10,
          .TodaySellQty = 2,
          .TodaySellAmount = 7,
          .BODPrice = 99},
         u"4",
         u"2",
         u"2.5",
         u"3.5"},
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
