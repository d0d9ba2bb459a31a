#include "tests/support/AllocationCount.h"
#include "tests/viewdata/AccountValuesFixture.h"
#include "viewdata/services/ConfigKeys.h"

namespace quorin {
namespace {

using AccountValuesTest = TAccountValuesFixture;

TEST_F(AccountValuesTest, EachAttributeAloneAndSummed) {
    struct TCase {
        const char* Name;
        Integer Attribute;
        StringView Own;
        StringView OwnText;
        StringView Summed;
        StringView SummedText;
    };
    const TCase cases[] = {
        {"cash less held", 4, u"1998.75", u"1,998.75", u"1910.75", u"1,910.75"},
        {"account", 10, u"'M'", u"M", u"'M'", u"M"},
        {"tag", 13, u"'Main'", u"Main", u"'Main'", u"Main"},
        {"name", 21, u"'Chan'", u"Chan", u"'Chan'", u"Chan"},
        {"currency", 23, u"'US dollar'", u"US dollar", u"'US dollar'", u"US dollar"},
        {"ratio", 104, u"8", u"8", u"8", u"8"},
        {"155", 155, u"1", u"1.00", u"111", u"111.00"},
        {"156", 156, u"2", u"2.00", u"222", u"222.00"},
        {"185", 185, u"3", u"3.00", u"333", u"333.00"},
        {"186", 186, u"4", u"4.00", u"444", u"444.00"},
        {"607 less 446", 189, u"3.5", u"3.50", u"333.5", u"333.50"},
        {"445", 445, u"5", u"5.00", u"555", u"555.00"},
        {"446", 446, u"6", u"6.00", u"666", u"666.00"},
        {"604", 604, u"7", u"7.00", u"777", u"777.00"},
        {"606", 606, u"8", u"8.00", u"888", u"888.00"},
        {"607", 607, u"9.5", u"9.50", u"999.5", u"999.50"},
        {"990", 990, u"1.25", u"1.25", u"111.25", u"111.25"},
        {"991", 991, u"2000", u"2,000.00", u"2022", u"2,022.00"},
        {"surplus counts within the sum", 996, u"0", u"0.00", u"-10", u"-10.00"},
        {"1205", 1205, u"12", u"12.00", u"1332", u"1,332.00"},
        {"1502", 1502, u"13", u"13.00", u"1443", u"1,443.00"},
        {"1503", 1503, u"-14", u"-14.00", u"-1554", u"-1,554.00"},
        {"9018 A less B", 9018, u"30", u"30.00", u"26", u"26.00"},
        {"9028", 9028, u"16", u"16.00", u"1776", u"1,776.00"},
        {"field", 777, u"17.5", u"17.50", u"19.5", u"19.50"},
        {"field that is no number", 778, u"0", u"0.00", u"4", u"4.00"},
        {"field that is not there", 779, u"0", u"0.00", u"0", u"0.00"},
        {"custom amount", 101601, u"1000", u"1,000.00", u"1005", u"1,005.00"},
        {"custom percentage", 101602, u"12.5", u"12.50%", u"12.5", u"12.50%"},
        {"custom text", 101603, u"'Ho'", u"Ho", u"#0", u"0"},
        {"custom text that is empty", 101604, u"''", u"", u"#0", u"0"},
        {"custom text that is a number", 101605, u"'12'", u"12", u"36", u"36"},
        {"custom column without a type", 101606, u"''", u"", u"#0", u"0"},
        {"a descendant's failure", Thrower, u"", u"", u"#0", u"0.00"},
    };
    TCustomAccountData* usd = Record(u"M", u"USD");
    for (const TCase& row : cases) {
        if (row.Attribute != Thrower) {
            EXPECT_EQ(Raw(usd, row.Attribute), row.Own) << row.Name;
        }
        EXPECT_EQ(Text(usd, row.Attribute), row.OwnText) << row.Name;
    }
    View().SetAggregate();
    for (const TCase& row : cases) {
        EXPECT_EQ(Raw(usd, row.Attribute), row.Summed) << row.Name;
        EXPECT_EQ(Text(usd, row.Attribute), row.SummedText) << row.Name;
    }
}

TEST_F(AccountValuesTest, KindsOfWhatIsNotThere) {
    struct TCase {
        const char* Name;
        Integer Attribute;
        StringView Own;
        StringView Summed;
    };
    const TCase cases[] = {
        {"account", 10, u"''", u"''"},
        {"tag", 13, u"''", u"''"},
        {"name", 21, u"''", u"''"},
        {"currency", 23, u"''", u"''"},
        {"ratio", 104, u"#0", u"#0"},
        {"amount", 604, u"#0", u"#0"},
        {"field", 777, u"#0", u"#0"},
        {"custom amount", 101601, u"#0", u"#0"},
        {"custom text", 101603, u"''", u"#0"},
        {"custom, no type", 101604, u"''", u"#0"},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(Raw(nullptr, row.Attribute), row.Own) << row.Name;
        EXPECT_EQ(Kinded(View().GetAggregatedAccountCurrencyData(nullptr, row.Attribute)),
                  row.Summed)
            << row.Name;
        EXPECT_EQ(Text(nullptr, row.Attribute, true), u"") << row.Name;
    }
    // A typed custom column without a text is whole 0 alone, and a number in a sum.
    TCustomAccountData* none = Record(u"S1", u"USD");
    EXPECT_EQ(Kinded(View().GetAccountCurrencyData(none, 101602)), u"#0");
    EXPECT_EQ(Kinded(View().GetFieldValue(none, 101602)), u"#0");
    EXPECT_EQ(Kinded(View().GetFieldValue(none, 101603)), u"'Yu'");
    EXPECT_EQ(Kinded(View().GetFieldValue(nullptr, 101601)), u"#0");
    View().SetAggregate();
    EXPECT_EQ(View().GetAggregatedAccountCurrencyData(Record(u"M", u""), 101602), Variant(0.0));
    EXPECT_EQ(Text(nullptr, 604), u"");
}

TEST_F(AccountValuesTest, ShortfallsOffsetEachOther) {
    struct TCase {
        const char* Name;
        Double Master, First, Second;
        Double Own, Summed;
    };
    for (const TCase& row :
         {TCase{"surplus wins", 100, -30, 0, 0, 0}, TCase{"shortfall wins", -100, 30, 0, -100, -70},
          TCase{"all surplus", 1, 2, 3, 0, 0}, TCase{"nothing", 0, 0, 0, 0, 0},
          TCase{"exactly even", 30, -20, -10, 0, 0}}) {
        Accounts().FeedBalance(u"M", u"USD", {.Value996 = row.Master});
        Accounts().FeedBalance(u"S1", u"USD", {.Value996 = row.First});
        Accounts().FeedBalance(u"S2", u"USD", {.Value996 = row.Second});
        TCustomAccountData* usd = Record(u"M", u"USD");
        EXPECT_EQ(View().GetAccountCurrencyData(usd, 996), Variant(row.Own)) << row.Name;
        if (!View().Aggregated()) View().SetAggregate();
        EXPECT_EQ(View().GetAggregatedAccountCurrencyData(usd, 996), Variant(row.Summed))
            << row.Name;
    }
}

TEST_F(AccountValuesTest, ConversionOfAmountsAndRatios) {
    Accounts().FeedBalance(u"M", u"JPY", {.Value604 = 100.0});
    struct TCase {
        const char* Name;
        StringView Record;
        StringView Shown; // the display currency
        StringView Plain, Converted, OnChina, Ratio;
    };
    const TCase cases[] = {
        {"total, none", u"", u"", u"800.00", u"800.00", u"800.00", u""},
        {"total into USD", u"", u"USD", u"800.00", u"100.00", u"100.00", u""},
        {"total into base", u"", u"HKD", u"800.00", u"800.00", u"800.00", u""},
        {"total, no ratio", u"", u"JPY", u"800.00", u"800.00", u"800.00", u""},
        {"USD, none", u"USD", u"", u"7.00", u"7.00", u"7.00", u"8"},
        {"USD into CNY", u"USD", u"CNY", u"7.00", u"44.80", u"5.60", u"6.4"},
        {"USD into itself", u"USD", u"USD", u"7.00", u"7.00", u"0.88", u"1"},
        {"USD, no target ratio", u"USD", u"JPY", u"7.00", u"56.00", u"7.00", u"8"},
        {"own ratio missing", u"JPY", u"CNY", u"100.00", u"0.00", u"80.00", u"0"},
    };
    for (const TCase& row : cases) {
        View().SetCurrency(row.Shown);
        TCustomAccountData* record = Record(u"M", row.Record);
        EXPECT_EQ(Text(record, 604, false), row.Plain) << row.Name;
        EXPECT_EQ(Text(record, 604, true), row.Converted) << row.Name;
        EXPECT_EQ(Text(record, 104), row.Ratio) << row.Name;
        Services().Features().SetChinaConnect(true);
        EXPECT_EQ(Text(record, 604, true), row.OnChina) << row.Name;
        Services().Features().SetChinaConnect(false);
        EXPECT_EQ(View().GetAccountCurrencyData(record, 604), Variant(record->GetValue604()))
            << row.Name << ": the raw value is never converted";
    }
}

TEST_F(AccountValuesTest, RatioAndCurrencyOfTheTotalRecord) {
    TCustomAccountData* total = Record(u"M", u"");
    EXPECT_EQ(Raw(total, 104), u"#0");
    EXPECT_EQ(Raw(total, 23), u"''");
    View().SetCurrency(u"USD");
    EXPECT_EQ(Raw(total, 23), u"'US dollar'");
    View().SetCurrency(u"XXX"); // has no name
    EXPECT_EQ(Raw(total, 23), u"''");
    Accounts().FeedBalance(u"M", u"XXX", {});
    EXPECT_EQ(Raw(Record(u"M", u"XXX"), 23), u"'XXX'");
    Services().Currencies().SetMultiCurrency(false);
    EXPECT_EQ(Raw(total, 104), u"0");
    EXPECT_EQ(Text(total, 104), u"0");
}

TEST_F(AccountValuesTest, ChinaConnectDataTakesThePlaceOfTheAccounts) {
    Accounts().FeedAccount(u"MC", {.Name = u"Connect"});
    Accounts().FeedAccount(u"S1C");
    Accounts().FeedAccount(u"S3C");
    for (const StringView account : {u"M", u"S1", u"S3"}) {
        Services().Features().FeedChinaConnectAccount(account, String(account) + u"C");
    }
    TBalanceFigures figures{.Value604 = 1000, .Value996 = -5};
    figures.Fields.Add(1601, u"9");
    Accounts().FeedBalance(u"MC", u"USD", figures);
    Accounts().FeedBalance(u"S1C", u"USD", {.Value604 = 200, .Value996 = 2});
    Accounts().FeedBalance(u"S3C", u"USD", {.Value604 = 40, .Value996 = -4});
    View().SetFilterCurr(u"USD");
    Services().Features().SetChinaConnect(true);
    EXPECT_EQ(Raw(Record(u"M", u"USD"), 604), u"7") << "the feature was off at the choice";
    View().SetFilterCurr(u"CNY");
    struct TCase {
        const char* Name;
        Integer Attribute;
        StringView Account;
        StringView Own, Summed;
    };
    const TCase cases[] = {
        {"amount", 604, u"M", u"1000", u"1200"}, // S2 has no such account, S3 no dollars itself
        {"shortfall", 996, u"M", u"-5", u"-7"},  // asks the China Connect account of S3 as well
        {"custom column", 101601, u"M", u"9", u"9"},
        {"no such account", 604, u"S2", u"#0", u"#0"},
        {"custom text without it", 101603, u"S2", u"''", u"''"},
        {"account", 10, u"M", u"'M'", u"'M'"},
        {"name", 21, u"M", u"'Chan'", u"'Chan'"},
        {"currency", 23, u"M", u"'US dollar'", u"'US dollar'"},
        {"ratio", 104, u"M", u"8", u"8"},
    };
    for (const Boolean summed : {false, true}) {
        if (summed) View().SetAggregate();
        for (const TCase& row : cases) {
            EXPECT_EQ(Raw(Record(row.Account, u"USD"), row.Attribute),
                      summed ? row.Summed : row.Own)
                << row.Name;
        }
    }
    EXPECT_EQ(Text(Record(u"S2", u"USD"), 604), u"0.00");
    View().SetFilterCurr(u"");
    EXPECT_EQ(Raw(Record(u"M", u"USD"), 604), u"777");
    View().SetFilterCurr(u"CNY");
    Services().Features().SetChinaConnect(false);
    EXPECT_EQ(Raw(Record(u"M", u"USD"), 604), u"777") << "the feature went off meanwhile";
}

TEST_F(AccountValuesTest, AccountsThatTheServiceSums) {
    Accounts().FeedAccount(u"T", {.Type = AccountType::SummedByService, .IsAggregate = true});
    Accounts().FeedBalance(u"T", u"USD", {.Value604 = 1, .Value996 = 3});
    Accounts().FeedBalance(u"T", u"CNY", {.Value604 = 1});
    Accounts().FeedSubAccountData(u"T", u"USD", {.Value604 = 55, .Value996 = 3});
    View().SetAccount(u"T");
    EXPECT_EQ(Raw(Record(u"T", u"USD"), 604), u"1");
    View().SetAggregate();
    EXPECT_EQ(Raw(Record(u"T", u"USD"), 604), u"55");
    EXPECT_EQ(Raw(Record(u"T", u"USD"), 996), u"0");
    EXPECT_EQ(Raw(Record(u"T", u"CNY"), 604), u"#0") << "no summed record";
    EXPECT_EQ(Raw(Record(u"S1", u"USD"), 604), u"70") << "the record's account is no master";
}

TEST_F(AccountValuesTest, PricingFollowsTheSettingsOfTheStart) {
    SetConfig(ConfigKey::MiddlePLPrice, u"1");
    auto middle = CreateComponent<TCustomAccountInfoDataControl>();
    SetConfig(ConfigKey::MiddlePLPrice, u"");
    TPositionFigures held;
    held.Side = TPositionSide::Long;
    held.Quantity = held.BODQuantity = 2;
    held.BODPrice = 100;
    held.Nominal = 130;
    held.ProdType = ProductType::Futures;
    held.Ticker = &Services().Items().Item(u"HSIF");
    held.PClose = 110;
    Services().Positions().FeedPosition(u"M", u"HSIF", held);
    SetField(u"HSIF", 3, 120.0);
    SetField(u"HSIF", 1, 118.0);
    Deliver();
    TCustomPositionData* position = Services().Positions().GetPosition(u"M", u"HSIF");
    EXPECT_EQ(View().GetPLPrice(position), 130.0);
    EXPECT_EQ(middle->GetPLPrice(position), 118.0);
    EXPECT_EQ(View().GetPL(position), (130.0 - 100.0) * 2 * 50);
    EXPECT_EQ(middle->GetPL(position), (118.0 - 100.0) * 2 * 50);
    Double price = 0.0;
    EXPECT_TRUE(View().GetAvgPrice(position, price));
    EXPECT_EQ(price, 100.0);
    EXPECT_TRUE(View().IsMarketOpen(u"HKFE"));
    EXPECT_FALSE(View().IsMarketOpen(u"XXXX"));
    EXPECT_EQ(View().GetMiddleOne(3, 1, 2), 2.0);
}

TEST_F(AccountValuesTest, NumbersAskForNoMemory) {
    WithoutFaults("faults ask for memory");
    View().SetColumnList(&Columns.Make({604, 189, 996, 777, 101601}));
    Accounts().FeedBalance(u"M", u"USD", Figures(1, 2, 3, 4, 5, 6, 7));
    for (const Boolean summed : {false, true}) {
        if (summed) View().SetAggregate();
        std::size_t before = 0;
        for (Integer run = 0; run < 20; ++run) {
            if (run == 10) before = AllocationCount();
            for (Integer node = 0; node < View().GetCount(); ++node) {
                View().GetValue(View().GetNode(node), Value);
            }
        }
        EXPECT_EQ(AllocationCount(), before) << summed;
    }
}

} // namespace
} // namespace quorin
