#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorin {
namespace {

using TSide = TPositionSide;

struct TPositionViewPricingTest : TPositionViewTest {
    // "1=10,16=500": texts of fields; those of a quote that are not named are absent.
    void Quote(StringView symbol, StringView fields) {
        for (const Integer field : {1, 2, 3, 16, 19}) Item(symbol).ClearField(field);
        for (const StringView field : Split(fields, u',')) {
            const std::size_t sign = field.find(u'=');
            Item(symbol).SetField(ToIntegerOr(field.substr(0, sign), -1), field.substr(sign + 1));
        }
    }
    void Settle(bool optionsPrice, bool middlePrice) {
        SetConfig(ConfigKey::OptionsPLPrice, optionsPrice ? u"1" : u"0");
        SetConfig(ConfigKey::MiddlePLPrice, middlePrice ? u"1" : u"0");
        MakeView();
    }
};

TEST_F(TPositionViewPricingTest, Middle) {
    EXPECT_EQ(View->GetMiddleOne(3, 1, 2), 2.0);
    EXPECT_EQ(View->GetMiddleOne(2, 2, 9), 2.0);
    EXPECT_EQ(View->GetMiddleOne(9, 2, 2), 2.0);
    EXPECT_EQ(View->GetMiddleOne(-1, 0, -5), -1.0);
    EXPECT_EQ(View->GetMiddleOne(1, std::numeric_limits<Double>::max(), 4), 4.0);
}

TEST_F(TPositionViewPricingTest, MarkingPrice) {
    struct TCase {
        const char* Name;
        bool OptionsPrice, MiddlePrice, Open;
        TSide Side;
        Integer Type;
        StringView Quote;
        Double Price; // the nominal is 7, the previous close 5
    };
    constexpr StringView quote = u"1=4,2=6,3=9,16=100,19=200";
    constexpr Integer option = ProductType::Options;
    constexpr Integer future = ProductType::Futures;
    constexpr TCase cases[] = {
        {"settings off, long", false, false, true, TSide::Long, option, quote, 7},
        {"settings off, short", false, false, true, TSide::Short, option, quote, 7},
        {"option long: bid", true, false, true, TSide::Long, option, quote, 4},
        {"option short: ask", true, false, true, TSide::Short, option, quote, 6},
        {"option net", true, true, true, TSide::Net, option, quote, 7},
        {"option goes before middle", true, true, true, TSide::Long, option, quote, 4},
        {"future is no option", true, false, true, TSide::Long, future, quote, 7},
        {"closed", true, false, false, TSide::Long, option, quote, 7},
        {"closed, middle long", true, true, false, TSide::Long, option, quote, 5},
        {"closed, middle short", true, true, false, TSide::Short, option, quote, 6},
        {"no bid quantity", true, true, true, TSide::Long, option, u"1=4,3=9,19=200", 7},
        {"bid quantity 0", true, true, true, TSide::Long, option, u"1=4,3=9,16=0", 7},
        {"bid quantity below 0", true, true, true, TSide::Long, option, u"1=4,3=9,16=-1", 7},
        {"bid quantity a fraction", true, true, true, TSide::Long, option, u"1=4,3=9,16=1.5", 7},
        {"bid quantity no number", true, true, true, TSide::Long, option, u"1=4,3=9,16=x", 7},
        {"bid quantity of 33 bits", true, true, true, TSide::Long, option, u"1=4,16=5000000000", 4},
        {"bid quantity of 64 bits", true, true, true, TSide::Long, option,
         u"1=4,16=9223372036854775807", 4},
        {"bid quantity too wide", true, true, true, TSide::Long, option,
         u"1=4,16=9223372036854775808", 7},
        {"bid absent", true, true, true, TSide::Long, option, u"2=6,3=9,16=100", 7},
        {"bid 0", true, true, true, TSide::Long, option, u"1=0,3=9,16=100", 7},
        {"bid below 0", true, true, true, TSide::Long, option, u"1=-4,3=9,16=100", 7},
        {"bid tiny", true, true, true, TSide::Long, option, u"1=0.00000001,16=100", 1e-8},
        {"ask no number", true, true, true, TSide::Short, option, u"2=x,3=9,19=200", 7},
        {"ask quantity absent", true, true, true, TSide::Short, option, u"2=6,3=9,16=100", 7},
        {"ask quantity of 33 bits", true, false, true, TSide::Short, option, u"2=6,19=5000000000",
         6},
        {"middle, future long", false, true, true, TSide::Long, future, u"1=6,3=9", 6},
        {"middle, option long", false, true, true, TSide::Long, option, u"1=6,3=9", 6},
        {"middle, bid absent: the lower", false, true, true, TSide::Long, future, u"3=9", 5},
        {"middle, ask absent: the higher", false, true, true, TSide::Short, future, u"3=9", 9},
        {"middle, ask no number", false, true, true, TSide::Short, future, u"2=x,3=9", 9},
        {"middle, ask 0: the lower", false, true, true, TSide::Short, future, u"2=0,3=9", 5},
        {"middle, net", false, true, true, TSide::Net, future, quote, 7},
        {"middle, stock", false, true, true, TSide::Long, StockProductType, quote, 7},
    };
    for (const TCase& row : cases) {
        Settle(row.OptionsPrice, row.MiddlePrice);
        Services().Market().SetMarketState(u"HKFE", u"", row.Open ? 1 : 0);
        EXPECT_EQ(View->IsMarketOpen(u"HKFE"), row.Open);
        Quote(u"TCHC", row.Quote);
        TPositionFigures figures{
            .Side = row.Side, .Quantity = 1, .ProdType = row.Type, .Nominal = 7, .PClose = 5};
        EXPECT_EQ(View->GetPLPrice(&Hold(u"A1", u"TCHC", figures)), row.Price) << row.Name;
        figures.Ticker = nullptr;
        TEmbeddedPositionData bare(u"TCHC", u"A1");
        bare.SetFigures(figures);
        EXPECT_EQ(View->GetPLPrice(&bare), 7) << row.Name << ", without a ticker";
    }
    EXPECT_FALSE(View->IsMarketOpen(u"NOWHERE"));
    SetConfig(ConfigKey::MiddlePLPrice, u"0"); // read when the view is made, and only then
    EXPECT_EQ(
        View->GetPLPrice(&Hold(
            u"A1", u"TCHC",
            TPositionFigures{.Side = TSide::Long, .ProdType = future, .Nominal = 7, .PClose = 12})),
        9)
        << "the median of 9, 12 and the bid of 4";
}

TEST_F(TPositionViewPricingTest, AverageCost) {
    constexpr Double untouched = -77.0;
    struct TCase {
        const char* Name;
        TPositionFigures Figures;
        Double Price; // untouched: False
    };
    constexpr TCase cases[] = {
        {"net", {.BODQuantity = 100, .BODPrice = 10}, untouched},
        {"long",
         {.Side = TSide::Long,
          .BODQuantity = 100,
          .TodayBuyQty = 100,
          .TodayBuyAmount = 1200,
          .TodaySellQty = 5,
          .BODPrice = 10},
         11},
        {"long without start price",
         {.Side = TSide::Long,
          .BODQuantity = 100,
          .TodayBuyQty = 100,
          .TodayBuyAmount = 1200,
          .BODPrice = 1e-7,
          .PClose = 9},
         10.5},
        {"short",
         {.Side = TSide::Short,
          .BODQuantity = 100,
          .TodayBuyQty = 5,
          .TodaySellQty = 50,
          .TodaySellAmount = 700,
          .BODPrice = 13},
         2000.0 / 150.0},
        {"short without start price",
         {.Side = TSide::Short,
          .BODQuantity = 100,
          .TodaySellQty = 100,
          .TodaySellAmount = 1200,
          .PClose = 9},
         10.5},
        {"long of 5e-8", {.Side = TSide::Long, .BODQuantity = 5e-8, .BODPrice = 10}, untouched},
        {"long of 1e-7", {.Side = TSide::Long, .TodayBuyQty = 1e-7}, untouched},
        {"long of 2e-7", {.Side = TSide::Long, .BODQuantity = 2e-7, .BODPrice = 10}, 10},
        {"long below 0", {.Side = TSide::Long, .BODQuantity = -2, .BODPrice = 10}, 10},
        {"long of 0", {.Side = TSide::Long, .TodayBuyAmount = 5}, untouched},
        {"short of 5e-8", {.Side = TSide::Short, .BODQuantity = 5e-8, .BODPrice = 10}, 10},
        {"short of 0", {.Side = TSide::Short, .TodaySellAmount = 5}, untouched},
    };
    for (const TCase& row : cases) {
        Double price = untouched;
        const bool isThere = View->GetAvgPrice(&Hold(u"A1", u"00700", row.Figures), price);
        EXPECT_EQ(isThere, row.Price != untouched) << row.Name;
        EXPECT_DOUBLE_EQ(price, row.Price) << row.Name;
    }
}

TEST_F(TPositionViewPricingTest, ProfitAndContractSize) {
    struct TCase {
        const char* Name;
        TSide Side;
        StringView Size; // field 504
        Double Profit, ContractSize;
    };
    constexpr TCase cases[] = {
        {"net has no cost", TSide::Net, u"50", 7.0 * 3 * 50, 50},
        {"long", TSide::Long, u"50", 2.0 * 3 * 50, 50},
        {"short", TSide::Short, u"50", -2.0 * 3 * 50, 50},
        {"no size", TSide::Long, u"", 2.0 * 3, 0},
        {"size no number", TSide::Long, u"lots", 2.0 * 3, 0},
        {"size 0", TSide::Long, u"0", 0, 0},
    };
    for (const TCase& row : cases) {
        TPositionFigures figures{.Side = row.Side,
                                 .Quantity = 3,
                                 .TodayBuyQty = 1,
                                 .TodayBuyAmount = 5,
                                 .TodaySellQty = 1,
                                 .TodaySellAmount = 5,
                                 .Nominal = 7};
        if (row.Size.empty()) {
            Item(u"HSIF").ClearField(Field::ContractSize);
        } else {
            Item(u"HSIF").SetField(Field::ContractSize, row.Size);
        }
        TEmbeddedPositionData& record = Hold(u"A1", u"HSIF", figures);
        EXPECT_EQ(View->GetPL(&record), row.Profit) << row.Name;
        EXPECT_EQ(View->GetConstractSize(&record), row.ContractSize) << row.Name;
        record.SetFigures(figures); // without a ticker: one unit
        const Double units = row.Side == TSide::Net ? 21 : row.Side == TSide::Short ? -6 : 6;
        EXPECT_EQ(View->GetPL(&record), units) << row.Name;
        EXPECT_EQ(View->GetConstractSize(&record), row.ContractSize) << row.Name;
    }
}

TEST_F(TPositionViewPricingTest, LeftFromStart) {
    struct TCase {
        const char* Name;
        StringView Symbol;
        TSide Side;
        Double Start, Bought, Sold, Left;
    };
    constexpr TCase cases[] = {
        {"net", u"AU12", TSide::Net, 100, 30, 50, 0},
        {"nothing at the start", u"AU12", TSide::Long, 0, 30, 50, 0},
        {"long on SHFE", u"AU12", TSide::Long, 100, 30, 50, 50},
        {"short on SHFE", u"AU12", TSide::Short, 100, 30, 50, 70},
        {"long, more sold", u"HSIF", TSide::Long, 100, 30, 50, 80},
        {"long, more bought", u"HSIF", TSide::Long, 100, 60, 50, 100},
        {"short, more sold", u"HSIF", TSide::Short, 100, 30, 50, 100},
        {"short, more bought", u"HSIF", TSide::Short, 100, 60, 50, 90},
        {"start of 5e-8", u"HSIF", TSide::Long, 5e-8, 0, 1, 5e-8 - 1},
        {"unknown symbol", u"GHOST", TSide::Long, 100, 30, 50, 80},
    };
    for (const TCase& row : cases) {
        const TPositionFigures figures{.Side = row.Side,
                                       .BODQuantity = row.Start,
                                       .TodayBuyQty = row.Bought,
                                       .TodaySellQty = row.Sold};
        TEmbeddedPositionData& record = Hold(u"A1", row.Symbol, figures);
        EXPECT_EQ(View->GetLastQty(&record), row.Left) << row.Name;
        record.SetFigures(figures);
        EXPECT_EQ(View->GetLastQty(&record), row.Left) << row.Name << ", without a ticker";
    }
    // The ticker's exchange goes before the record's, but not while nothing has arrived.
    TEmbeddedPositionData& gold =
        Hold(u"A1", u"AU12",
             {.Side = TSide::Long, .BODQuantity = 100, .TodayBuyQty = 30, .TodaySellQty = 50});
    constexpr std::pair<Integer, Double> byStatus[] = {
        {ItemStatus::Waiting, 50}, {ItemStatus::Ready, 80}, {ItemStatus::NoData, 80}};
    Item(u"AU12").SetField(Field::Exchange, u"shfe");
    for (const auto& [status, left] : byStatus) {
        Item(u"AU12").SetStatus(status);
        EXPECT_EQ(View->GetLastQty(&gold), left) << status;
    }
    Item(u"AU12").SetField(Field::Exchange, u"");
    EXPECT_EQ(View->GetLastQty(&gold), 50) << "an empty exchange is looked up";
}

TEST_F(TPositionViewPricingTest, AcceptValue) {
    constexpr Double untouched = -77.0;
    Services().Currencies().FeedRatio(u"USD", 8.0);
    Services().Currencies().FeedRatio(u"CNY", 1.25);
    Services().Products().FeedProduct(u"AU12", {}).SetMarginRatio(0.5);
    Services().Products().FeedProduct(u"GHOST", {}).SetMarginRatio(0.5);
    Services().Products().FeedProduct(u"HSIF", {}).SetMarginRatio(0.5); // no price
    Services().Products().FeedProduct(u"00005", {});                    // no ratio
    SetField(u"AU12", Field::LastPrice, 4.0);
    SetField(u"00005", Field::LastPrice, 4.0);
    SetField(u"00700", Field::LastPrice, 4.0); // no product
    SetField(u"GHOST", Field::LastPrice, 4.0);
    SetField(u"GHOST", Field::Currency, u"CNY");
    struct TCase {
        const char* Name;
        StringView Account, Symbol, Currency;
        Integer GhostStatus;
        Double Ratio, Value;
    };
    constexpr TCase cases[] = {
        // (5 - 2) x 4 x 1000 x 0.5 = 6000
        {"product's currency", u"A1", u"AU12", u"", 1, 0.5, 6000},
        {"another currency", u"A1", u"AU12", u"USD", 1, 0.5, 937.5},
        {"base", u"A1", u"AU12", u"HKD", 1, 0.5, 7500},
        {"unknown currency: in base", u"A1", u"AU12", u"XXX", 1, 0.5, 7500},
        {"by the ticker's currency", u"A1", u"GHOST", u"USD", 1, 0.5, 6 * 1.25 / 8},
        {"ticker not ready: no currency", u"A1", u"GHOST", u"USD", 2, 0.5, 6.0 / 8},
        {"cash account", u"A2", u"AU12", u"", 1, untouched, untouched},
        {"unknown account", u"NOBODY", u"AU12", u"", 1, untouched, untouched},
        {"no product", u"A1", u"00700", u"", 1, untouched, untouched},
        {"no ratio", u"A1", u"00005", u"", 1, untouched, untouched},
        {"no market value", u"A1", u"HSIF", u"", 1, 0.5, untouched},
    };
    for (const TCase& row : cases) {
        Item(u"GHOST").SetStatus(row.GhostStatus);
        TEmbeddedPositionData& record =
            Hold(row.Account, row.Symbol, {.Quantity = 5, .ShortQuantity = 2});
        Double ratio = untouched;
        EXPECT_EQ(View->GetProductMargin(&record, ratio), row.Ratio != untouched) << row.Name;
        EXPECT_EQ(ratio, row.Ratio) << row.Name;
        Double value = untouched;
        EXPECT_EQ(View->GetAcceptValue(&record, row.Currency, value), row.Value != untouched)
            << row.Name;
        EXPECT_EQ(value, row.Value) << row.Name;
    }
    ServiceRegistry::Remove<TCustomProductAdapter>();
    Double ratio = untouched;
    EXPECT_FALSE(View->GetProductMargin(&Hold(u"A1", u"AU12", 1.0), ratio));
    ServiceRegistry::Install(&Services().Products());
}

TEST_F(TPositionViewPricingTest, Totals) {
    for (const StringView symbol : {u"00700", u"HSIF", u"AU12", u"00005", u"GHOST"}) {
        Services().Products().FeedProduct(symbol, {}).SetMarginRatio(0.5);
        if (symbol != u"00005") SetField(symbol, Field::LastPrice, 2.0); // no price: no value
    }
    Services().Currencies().FeedRatio(u"CNY", 1.25);
    Hold(u"A1", u"00700", 10.0); // 20
    Hold(u"A1", u"HSIF", -1.0);  // -100
    Hold(u"A1", u"AU12", 1.0);   // 2000 CNY, 2500 in base
    Hold(u"A1", u"00005", 400.0);
    Services().Positions().FeedPosition(u"A1", u"GHOST", {.Quantity = 1.0}); // 2, no ticker
    Hold(u"M1", u"00700", 10.0);
    Hold(u"S1", u"00700", 5.0);
    Deliver();
    TEmbeddedFeatureSwitches& features = Services().Features();
    features.FeedChinaConnectExchange(u"SHFE");
    struct TCase {
        const char* Name;
        bool ChinaConnect;
        StringView Currency; // chosen
        Double MarketValue;
    };
    constexpr TCase cases[] = {
        {"all", false, u"", 2422},
        {"China Connect off: a currency changes nothing", false, u"CNY", 2422},
        {"the others", true, u"", -78},
        {"China Connect", true, u"CNY", 2000},
        {"China Connect without a ratio", true, u"XXX", 2500},
    };
    EXPECT_EQ(View->GetTotalMarketValue(), 0.0) << "no account";
    Show(u"A1");
    for (const TCase& row : cases) {
        features.SetChinaConnect(row.ChinaConnect);
        View->SetShowChinaConnect(row.Currency);
        EXPECT_EQ(View->GetTotalMarketValue(), row.MarketValue) << row.Name;
        EXPECT_EQ(View->GetTotalAcceptValue(), row.MarketValue / 2) << row.Name;
        ExpectSignals(u"");
    }
    Services().Positions().FeedPosition(u"A1", u"AU12", {.Quantity = 1.0}); // no ticker any more
    EXPECT_EQ(View->GetTotalMarketValue(), 2500) << "the record knows the exchange";
    features.SetChinaConnect(false);
    View->InGetValue = [](Integer row, Integer, Variant& value) {
        if (row == 0) value = Variant(u"n/a");
        if (row == 1) value = Variant::EmptyText();
        if (row == 2) value = Variant();
    };
    EXPECT_EQ(View->GetTotalMarketValue(), 2) << "texts and null add nothing";
    View->InGetValue = nullptr;
    View->SetShowChinaConnect(u"CNY");
    features.SetChinaConnect(true);
    EXPECT_EQ(View->GetTotalMarketValue(), -78) << "the choice counts as it was made";
    features.FeedChinaConnectExchange(u"");
    EXPECT_EQ(View->GetTotalMarketValue(), -80) << "GHOST is of the exchange without a code";
    Show(u"M1", /*aggregated=*/true);
    EXPECT_EQ(View->GetTotalMarketValue(), 30);
    EXPECT_EQ(View->GetTotalAcceptValue(), 0.0);
}

} // namespace
} // namespace quorin
