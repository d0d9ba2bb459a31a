#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using TSide = TPositionSide;
using TAct = std::function<void()>;

// M1 holds 100 of 00700, traded, and 5 HSIF; S1 the opposite of 00700, and 400 of 00005; S2 2 HSIF.
struct TPositionViewEventsTest : TPositionViewTest {
    TPositionViewEventsTest() {
        Hold(u"M1", u"00700", u"qty=100 buy=100");
        Hold(u"M1", u"HSIF", 5.0);
        Hold(u"S1", u"00700", -100.0);
        Hold(u"S1", u"00005", 400.0);
        Hold(u"S2", u"HSIF", 2.0);
        Hold(u"M2", u"00005", 800.0);
        Hold(u"T1", u"TCHC", 3.0);
        Hold(u"A1", u"00005", 40.0);
        Hold(u"S3", u"TCHC", 9.0); // nobody's sub-account yet
        Hold(u"S3", u"HSIF", 1.0);
        Deliver();
    }
    Integer PositionRegistrations() {
        return Services().Positions().RegistrationCount() - 1; // prices are followed from the start
    }
    static constexpr StringView PlainM1 = u"00700:100 HSIF:5";
    static constexpr StringView SumM1 = u"HSIF:7 00005:400"; // 00700 adds up to nothing
};

TEST_F(TPositionViewEventsTest, NewView) {
    EXPECT_FALSE(View->Aggregated());
    EXPECT_EQ(View->Account() + View->FilterCurrency() + View->Rows(), u"");
    EXPECT_EQ(View->ConvertCurrency(), u"HKD");
    EXPECT_EQ(PositionRegistrations(), 0);
    const Integer registered = Services().RegistrationCount();
    View.reset();
    // Settings, prices, tick tables, ratios of currencies and of margin, details, sub-accounts.
    EXPECT_EQ(Services().RegistrationCount(), registered - 7);
}

TEST_F(TPositionViewEventsTest, Modes) {
    const struct {
        const char* Name;
        StringView Start;
        bool IsAggregated;
        StringView Event; // "*" toggles, what else there is names accounts, "-" none
        bool Next;
        StringView Rows, SubAccounts, Signals;
        Integer Registrations; // -1 where they do not matter
    } cases[] = {
        {"plain, toggle master", u"M1", false, u"*", true, SumM1, u"S1 S2", u"R", 2},
        {"plain, toggle other", u"A1", false, u"*", false, u"00005:40", u"", u"", 1},
        {"plain, toggle sub", u"S2", false, u"*", false, u"HSIF:2", u"", u"", 1},
        {"plain, toggle unknown", u"S3", false, u"*", false, u"TCHC:9 HSIF:1", u"", u"", 1},
        {"plain, toggle none", u"", false, u"*", false, u"", u"", u"", 0},
        {"plain, master", u"A1", false, u"M1", false, PlainM1, u"", u"R", 1},
        {"plain, same", u"M1", false, u"M1", false, PlainM1, u"", u"", 1},
        {"sum, toggle", u"M1", true, u"*", false, PlainM1, u"", u"R", 1},
        {"sum, master", u"M1", true, u"M2", true, u"00005:800 TCHC:3", u"T1", u"R", 2},
        {"sum, same", u"M1", true, u"M1", true, SumM1, u"S1 S2", u"", 2},
        {"sum, other", u"M1", true, u"A1", false, u"00005:40", u"", u"R", 1},
        {"sum, sub", u"M1", true, u"S1", false, u"00700:-100 00005:400", u"", u"R", 1},
        {"sum, unknown", u"M1", true, u"S3", false, u"TCHC:9 HSIF:1", u"", u"R", 1},
        {"sum, nobody", u"M1", true, u"NOBODY", false, u"", u"", u"R", 1},
        {"sum, none", u"M1", true, u"-", true, u"", u"", u"R", -1},
        {"sum, none, toggle", u"M1", true, u"- *", true, u"", u"", u"R", -1},
        {"sum, none, master", u"M1", true, u"- M2", true, u"00005:800 TCHC:3", u"T1", u"RR", 2},
        {"there and back", u"M1", false, u"* *", false, PlainM1, u"", u"RR", 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        MakeView();
        Show(row.Start, row.IsAggregated);
        EXPECT_EQ(View->Aggregated(), row.IsAggregated);
        for (const StringView word : Split(row.Event, u' ')) {
            if (word == u"*") {
                View->SetAggregate();
            } else {
                View->SetAccount(word == u"-" ? StringView() : word);
            }
        }
        EXPECT_EQ(View->Aggregated(), row.Next);
        EXPECT_EQ(View->Rows(), row.Rows);
        EXPECT_EQ(View->SubAccounts(), row.SubAccounts);
        ExpectSignals(row.Signals);
        if (row.Registrations >= 0) {
            EXPECT_EQ(PositionRegistrations(), row.Registrations);
        }
        View.reset();
        EXPECT_EQ(Services().Positions().RegistrationCount(), 0);
    }
}

TEST_F(TPositionViewEventsTest, Events) {
    const auto hold = [this](StringView account, StringView symbol, Double quantity) {
        return [=, this] { Hold(account, symbol, quantity), Deliver(); };
    };
    const auto join = [this](StringView master) {
        return [this, details = TAccountDetails{.MasterAccount = String(master)}] {
            Services().Accounts().FeedAccount(u"S3", details), Deliver();
        };
    };
    const auto filter = [this](StringView code) {
        return [=, this] { View->SetFilterCurrency(code); };
    };
    const TAct margin = [this] {
        Services().Products().FeedProduct(u"AU12", {}).SetMarginRatio(0.5), Deliver();
    };
    const TAct ratio = [this] { Services().Currencies().FeedRatio(u"USD", 8.0), Deliver(); };
    const TAct target = [this] { View->SetConvertCurrency(u"USD"); };
    const TAct nothing = [this] {
        TAccountPositionDictionary positions;
        TAccountDictionary accounts;
        for (void* const sender : {Pointer(), Pointer(&positions)}) {
            View->PositionUpdate(sender, nullptr);
            View->PositionMarketDataUpdate(sender, nullptr);
        }
        for (void* const sender : {Pointer(), Pointer(&accounts)}) {
            View->SubAccountLoadUpdate(sender, nullptr);
            View->AccountInfoLoadUpdate(sender, nullptr);
        }
    };
    const auto move = [this](StringView symbol) {
        return [=, this] { SetField(symbol, Field::LastPrice, 3.0), Deliver(); };
    };
    const auto set = [this](StringView key) { return [=, this] { SetConfig(key, u"1"); }; };
    const struct {
        const char* Name;
        TAct Event;
        StringView Plain, PlainSignals, Sum, SumSignals;
    } cases[] = {
        {"master's", hold(u"M1", u"00700", 150), u"00700:150 HSIF:5", u"RS",
         u"00700:50 HSIF:7 00005:400", u"RS"},
        {"master's new", hold(u"M1", u"TCHC", 1), u"00700:100 HSIF:5 TCHC:1", u"RS",
         u"HSIF:7 TCHC:1 00005:400", u"RS"},
        {"master's closed", hold(u"M1", u"HSIF", 0), u"00700:100", u"RS", u"HSIF:2 00005:400",
         u"RS"},
        {"sub's", hold(u"S1", u"00005", 900), PlainM1, u"", u"HSIF:7 00005:900", u"RS"},
        {"another's", hold(u"A1", u"00700", 900), PlainM1, u"", SumM1, u""},
        {"master's market data", move(u"00700"), PlainM1, u"R", SumM1, u"R"},
        {"sub's market data", move(u"00005"), PlainM1, u"", SumM1, u"R"},
        {"another's market data", move(u"TCHC"), PlainM1, u"", SumM1, u""},
        {"sub loaded", join(u"M1"), PlainM1, u"", u"HSIF:8 00005:400 TCHC:9", u"R"},
        {"another's sub loaded", join(u"M2"), PlainM1, u"", SumM1, u""},
        {"margin ratio", margin, PlainM1, u"RS", SumM1, u"RS"},
        {"zero quantities", set(ConfigKey::DisplayZeroQty), PlainM1, u"R",
         u"00700:0 HSIF:7 00005:400", u"R"},
        {"bond style", set(ConfigKey::DenominatorModeValue), PlainM1, u"R", SumM1, u"R"},
        {"another setting", set(ConfigKey::MiddlePLPrice), PlainM1, u"", SumM1, u""},
        {"filter", filter(u"cny"), u"", u"R", u"", u"R"},
        {"same filter", filter(u""), PlainM1, u"", SumM1, u""},
        {"own currency", filter(u"hKd"), PlainM1, u"R", SumM1, u"R"},
        {"currency ratio", ratio, PlainM1, u"R", SumM1, u"R"},
        {"target currency", target, PlainM1, u"R", SumM1, u"R"},
        {"China Connect", [this] { View->SetShowChinaConnect(u"CNY"); }, PlainM1, u"", SumM1, u""},
        {"nothing named", nothing, PlainM1, u"", SumM1, u""},
    };
    // Each case begins with a world of its own.
    const auto reset = [this] {
        View.reset();
        for (const StringView key : {ConfigKey::DisplayZeroQty, ConfigKey::DenominatorModeValue,
                                     ConfigKey::MiddlePLPrice}) {
            SetConfig(key, u"");
        }
        Services().Accounts().FeedAccount(u"S3", {});
        Hold(u"M1", u"00700", u"qty=100 buy=100");
        Hold(u"M1", u"HSIF", 5.0);
        Hold(u"M1", u"TCHC", 0.0);
        Hold(u"S1", u"00005", 400.0);
        Hold(u"A1", u"00700", 0.0);
        Deliver();
        MakeView();
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        for (const bool isSum : {false, true}) {
            reset();
            Show(u"M1", isSum);
            row.Event();
            EXPECT_EQ(View->Rows(), isSum ? row.Sum : row.Plain) << isSum;
            ExpectSignals(isSum ? row.SumSignals : row.PlainSignals);
        }
    }
    reset();
    Show(u"NOBODY");
    TAccountPositionDictionary sender;
    TPositionDictionary none;
    sender.Add(u"NOBODY", &none);
    View->PositionMarketDataUpdate(&sender, nullptr);
    View->PositionUpdate(&sender, nullptr);
    ExpectSignals(u"");
}

TEST_F(TPositionViewEventsTest, WhatIsDisplayed) {
    constexpr struct {
        const char* Name;
        Double Quantity, Bought, Sold;
        bool Plain, WithZero;
    } cases[] = {
        {"0.0", 0.0, 0.0, 0.0, false, false},        {"5e-8", 5e-8, 0.0, 0.0, false, false},
        {"1e-7", 1e-7, 0.0, 0.0, false, false},      {"2e-7", 2e-7, 0.0, 0.0, true, true},
        {"-1e-7", -1e-7, 0.0, 0.0, false, false},    {"-2e-7", -2e-7, 0.0, 0.0, true, true},
        {"0, bought", 0.0, 5e-8, 0.0, false, true},  {"0, sold", 0.0, 0.0, 1.0, false, true},
        {"1e-7, both", 1e-7, 1.0, 1.0, false, true}, {"2e-7, both", 2e-7, 1.0, 1.0, true, true},
    };
    for (const bool withZero : {false, true}) {
        SetConfig(ConfigKey::DisplayZeroQty, withZero ? u"1" : u"0");
        for (const auto& row : cases) {
            TEmbeddedPositionData record(u"GHOST", u"A1");
            TPositionFigures figures{
                .Quantity = row.Quantity, .TodayBuyQty = row.Bought, .TodaySellQty = row.Sold};
            const bool shown = withZero ? row.WithZero : row.Plain;
            record.SetFigures(figures);
            EXPECT_EQ(View->IsDisplayPosition(&record), shown) << row.Name;
            View->SetFilterCurrency(u"hkd"); // lets those without a ticker pass
            EXPECT_EQ(View->IsDisplayPosition(&record), shown) << row.Name;
            figures.Ticker = &Item(u"00700");
            record.SetFigures(figures);
            EXPECT_EQ(View->IsDisplayPosition(&record), shown) << row.Name;
            figures.Ticker = &Item(u"AU12");
            record.SetFigures(figures);
            EXPECT_FALSE(View->IsDisplayPosition(&record)) << row.Name;
            View->SetFilterCurrency({});
        }
    }
    EXPECT_FALSE(View->IsDisplayPosition(nullptr));
}

TEST_F(TPositionViewEventsTest, ACurrencyThatComesLateBringsTheRowBack) {
    Hold(u"A1", u"GHOST", 7.0);
    Show(u"A1");
    View->SetFilterCurrency(u"HKD");
    EXPECT_EQ(View->Rows(), u"00005:40");
    SetField(u"GHOST", Field::Currency, u"HKD");
    Services().Items().Deliver();
    EXPECT_EQ(View->Rows(), u"00005:40");
    Hold(u"A1", u"GHOST", 8.0);
    Deliver();
    EXPECT_EQ(View->Rows(), u"00005:40 GHOST:8");
}

TEST_F(TPositionViewEventsTest, ASumHasTheSideOfTheFirst) {
    Hold(u"M2", u"AU12", u"long qty=100");
    Hold(u"T1", u"AU12", u"short qty=100");
    Hold(u"T1", u"HSIF", u"short qty=6");
    Show(u"M2", /*aggregated=*/true);
    EXPECT_EQ(View->Rows(), u"00005:800 AU12:200 TCHC:3 HSIF:6");
    EXPECT_EQ(View->Record(1)->GetSide(), TSide::Long);
    EXPECT_EQ(View->Record(3)->GetSide(), TSide::Short);
    View->SetFilterCurrency(u"CNY"); // hides rows, not sums
    EXPECT_EQ(View->Rows(), u"AU12:200");
    EXPECT_EQ(View->FAggregatePositionList.Count(), 4);
}

TEST_F(TPositionViewEventsTest, RowsThatStayKeepTheirOrder) {
    const auto hold = [this](StringView account, StringView symbol, Double quantity) {
        Hold(account, symbol, quantity);
        Deliver();
    };
    Hold(u"M1", u"00005", 4.0);
    Show(u"M1");
    EXPECT_EQ(View->Rows(), u"00700:100 HSIF:5 00005:4");
    hold(u"M1", u"00700", 0.0);
    hold(u"M1", u"00700", 9.0);
    EXPECT_EQ(View->Rows(), u"HSIF:5 00005:4 00700:9");
    View->SetFilterCurrency(u"HKD");
    EXPECT_EQ(View->Rows(), u"HSIF:5 00005:4 00700:9") << "a rebuild of the plain list";
    View->SetFilterCurrency({});
    Show(u"M2", /*aggregated=*/true);
    EXPECT_EQ(View->Rows(), u"00005:800 TCHC:3");
    hold(u"M2", u"TCHC", 5.0);
    hold(u"M2", u"00005", 0.0);
    hold(u"T1", u"00005", 6.0);
    hold(u"M2", u"TCHC", 0.0);
    EXPECT_EQ(View->Rows(), u"TCHC:3 00005:6");
}

TEST_F(TPositionViewEventsTest, SubAccountsThatVanish) {
    Show(u"M1", /*aggregated=*/true);
    Services().Accounts().FeedAccount(u"S2", {.MasterAccount = u"M2"});
    Deliver();
    Hold(u"S1", u"00005", 500.0);
    Deliver();
    View->CheckInvariants();
    TAccountDictionary loaded;
    loaded.Add(u"S1", TCustomAccountAdapter::GetInstance()->GetAccount(u"S1", false));
    View->SubAccountLoadUpdate(&loaded, nullptr);
    EXPECT_EQ(View->SubAccounts(), u"S1");
    EXPECT_EQ(View->Rows(), u"HSIF:5 00005:500");
    Services().Accounts().FeedAccount(u"M1", {.IsAggregate = false}); // the master, too
    Deliver();
    View->SubAccountLoadUpdate(&loaded, nullptr);
    Hold(u"S1", u"00005", 600.0);
    Deliver();
    View->CheckInvariants();
    View->SetAccount(u"A1");
    EXPECT_EQ(View->Rows(), u"00005:40");
}

} // namespace
} // namespace quorin
