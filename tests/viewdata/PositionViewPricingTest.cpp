#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorin {
namespace {

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
        StringView Settings; // o: option's side, m: middle, c: the market is closed
        StringView Record;   // its nominal is 7, its previous close 5
        StringView Quote;
        Double Price;
    };
    constexpr StringView quote = u"1=4,2=6,3=9,16=100,19=200";
    constexpr TCase cases[] = {
        {"settings off, long", u"", u"long type=3", quote, 7},
        {"settings off, short", u"", u"short type=3", quote, 7},
        {"option long: bid", u"o", u"long type=3", quote, 4},
        {"option short: ask", u"o", u"short type=3", quote, 6},
        {"option net", u"om", u"type=3", quote, 7},
        {"option goes before middle", u"om", u"long type=3", quote, 4},
        {"future is no option", u"o", u"long type=2", quote, 7},
        {"closed", u"oc", u"long type=3", quote, 7},
        {"closed, middle long", u"omc", u"long type=3", quote, 5},
        {"closed, middle short", u"omc", u"short type=3", quote, 6},
        {"no bid quantity", u"om", u"long type=3", u"1=4,3=9,19=200", 7},
        {"bid quantity 0", u"om", u"long type=3", u"1=4,3=9,16=0", 7},
        {"bid quantity below 0", u"om", u"long type=3", u"1=4,3=9,16=-1", 7},
        {"bid quantity a fraction", u"om", u"long type=3", u"1=4,3=9,16=1.5", 7},
        {"bid quantity no number", u"om", u"long type=3", u"1=4,3=9,16=x", 7},
        {"bid quantity of 33 bits", u"om", u"long type=3", u"1=4,16=5000000000", 4},
        {"bid quantity of 64 bits", u"om", u"long type=3", u"1=4,16=9223372036854775807", 4},
        {"bid quantity too wide", u"om", u"long type=3", u"1=4,16=9223372036854775808", 7},
        {"bid absent", u"om", u"long type=3", u"2=6,3=9,16=100", 7},
        {"bid 0", u"om", u"long type=3", u"1=0,3=9,16=100", 7},
        {"bid below 0", u"om", u"long type=3", u"1=-4,3=9,16=100", 7},
        {"bid tiny", u"om", u"long type=3", u"1=0.00000001,16=100", 1e-8},
        {"ask no number", u"om", u"short type=3", u"2=x,3=9,19=200", 7},
        {"ask quantity absent", u"om", u"short type=3", u"2=6,3=9,16=100", 7},
        {"ask quantity of 33 bits", u"o", u"short type=3", u"2=6,19=5000000000", 6},
        {"middle, future long", u"m", u"long type=2", u"1=6,3=9", 6},
        {"middle, option long", u"m", u"long type=3", u"1=6,3=9", 6},
        {"middle, bid absent: the lower", u"m", u"long type=2", u"3=9", 5},
        {"middle, ask absent: the higher", u"m", u"short type=2", u"3=9", 9},
        {"middle, ask no number", u"m", u"short type=2", u"2=x,3=9", 9},
        {"middle, ask 0: the lower", u"m", u"short type=2", u"2=0,3=9", 5},
        {"middle, net", u"m", u"type=2", quote, 7},
        {"middle, stock", u"m", u"long type=1", quote, 7},
    };
    for (const TCase& row : cases) {
        const bool isOpen = row.Settings.find(u'c') == StringView::npos;
        Settle(row.Settings.find(u'o') != StringView::npos,
               row.Settings.find(u'm') != StringView::npos);
        Services().Market().SetMarketState(u"HKFE", u"", isOpen ? 1 : 0);
        EXPECT_EQ(View->IsMarketOpen(u"HKFE"), isOpen);
        Quote(u"TCHC", row.Quote);
        const String figures = String(row.Record) + u" qty=1 nominal=7 close=5";
        EXPECT_EQ(View->GetPLPrice(&Hold(u"A1", u"TCHC", figures)), row.Price) << row.Name;
        EXPECT_EQ(View->GetPLPrice(&HoldBare(u"TCHC", figures)), 7) << row.Name << ", no ticker";
    }
    EXPECT_FALSE(View->IsMarketOpen(u"NOWHERE"));
    Settle(false, true);
    SetConfig(ConfigKey::MiddlePLPrice, u"0"); // read when the view is made, and only then
    Quote(u"TCHC", quote);
    EXPECT_EQ(View->GetPLPrice(&Hold(u"A1", u"TCHC", u"long type=2 nominal=7 close=12")), 9);
}

TEST_F(TPositionViewPricingTest, AverageCost) {
    constexpr Double untouched = -77.0;
    struct TCase {
        const char* Name;
        StringView Figures;
        Double Price; // untouched: False
    };
    constexpr TCase cases[] = {
        {"net", u"start=100 at=10", untouched},
        {"long", u"long start=100 at=10 buy=100 paid=1200 sell=5", 11},
        {"long, no start price", u"long start=100 at=1e-7 close=9 buy=100 paid=1200", 10.5},
        {"short", u"short start=100 at=13 buy=5 sell=50 got=700", 2000.0 / 150.0},
        {"short, no start price", u"short start=100 close=9 sell=100 got=1200", 10.5},
        {"long of 5e-8", u"long start=5e-8 at=10", untouched},
        {"long of 1e-7", u"long buy=1e-7", untouched},
        {"long of 2e-7", u"long start=2e-7 at=10", 10},
        {"long below 0", u"long start=-2 at=10", 10},
        {"long of 0", u"long paid=5", untouched},
        {"short of 5e-8", u"short start=5e-8 at=10", 10},
        {"short of 0", u"short got=5", untouched},
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
        StringView Figures, Size; // the latter is field 504
        Double Profit, BareProfit, ContractSize;
    };
    constexpr TCase cases[] = {
        {"net has no cost", u"qty=3 nominal=7 buy=1 paid=5", u"50", 1050, 21, 50},
        {"long", u"long qty=3 nominal=7 buy=1 paid=5", u"50", 300, 6, 50},
        {"short", u"short qty=3 nominal=7 sell=1 got=5", u"50", -300, -6, 50},
        {"no cost", u"short qty=3 nominal=7", u"50", -1050, -21, 50},
        {"no size", u"long qty=3 nominal=7 buy=1 paid=5", u"", 6, 6, 0},
        {"size no number", u"long qty=3 nominal=7 buy=1 paid=5", u"lots", 6, 6, 0},
        {"size 0", u"long qty=3 nominal=7 buy=1 paid=5", u"0", 0, 6, 0},
    };
    for (const TCase& row : cases) {
        const auto& [name, figures, size, profit, bareProfit, contractSize] = row;
        if (size.empty()) {
            Item(u"HSIF").ClearField(Field::ContractSize);
        } else {
            Item(u"HSIF").SetField(Field::ContractSize, size);
        }
        TEmbeddedPositionData* record = &Hold(u"A1", u"HSIF", figures);
        EXPECT_EQ(View->GetPL(record), profit) << name;
        EXPECT_EQ(View->GetConstractSize(record), contractSize) << name;
        record = &HoldBare(u"HSIF", figures);
        EXPECT_EQ(View->GetPL(record), bareProfit) << name << ", no ticker: one unit";
        EXPECT_EQ(View->GetConstractSize(record), contractSize) << name;
    }
}

TEST_F(TPositionViewPricingTest, LeftFromStart) {
    struct TCase {
        const char* Name;
        StringView Symbol, Figures;
        Double Left;
    };
    constexpr TCase cases[] = {
        {"net", u"AU12", u"start=100 buy=30 sell=50", 0},
        {"nothing at the start", u"AU12", u"long buy=30 sell=50", 0},
        {"long on SHFE", u"AU12", u"long start=100 buy=30 sell=50", 50},
        {"short on SHFE", u"AU12", u"short start=100 buy=30 sell=50", 70},
        {"long, more sold", u"HSIF", u"long start=100 buy=30 sell=50", 80},
        {"long, more bought", u"HSIF", u"long start=100 buy=60 sell=50", 100},
        {"short, more sold", u"HSIF", u"short start=100 buy=30 sell=50", 100},
        {"short, more bought", u"HSIF", u"short start=100 buy=60 sell=50", 90},
        {"start of 5e-8", u"HSIF", u"long start=5e-8 sell=1", 5e-8 - 1},
        {"unknown symbol", u"GHOST", u"long start=100 buy=30 sell=50", 80},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(View->GetLastQty(&Hold(u"A1", row.Symbol, row.Figures)), row.Left) << row.Name;
        EXPECT_EQ(View->GetLastQty(&HoldBare(row.Symbol, row.Figures)), row.Left)
            << row.Name << ", no ticker";
    }
    // The ticker's exchange goes before the record's, but not while nothing has arrived.
    TEmbeddedPositionData& gold = Hold(u"A1", u"AU12", u"long start=100 buy=30 sell=50");
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
        TEmbeddedPositionData& record = Hold(row.Account, row.Symbol, u"qty=5 sqty=2");
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
